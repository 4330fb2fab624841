#include "ui/websearch/agent_list.h"

#include <QHeaderView>
#include <QResizeEvent>
#include <algorithm>

#include "ui/base/icons.h"
#include "ui/base/wide_text.h"
#include "ui/websearch/agent_delegate.h"

namespace brovanta {
namespace {

constexpr int kAgentColumn = 0;
constexpr int kStatusColumn = 1;
constexpr int kLeastWidth = 100;
constexpr int kPicture = 165;
constexpr QSize kPictureSize{16, 16};
constexpr int kAgentId = Qt::UserRole;

}  // namespace

AgentList::AgentList(QWidget* parent) : RowTree(parent), delegate_(new AgentDelegate(this)) {
  setColumnCount(2);
  setHeaderLabels({tr("Agent"), tr("Status")});
  header()->setStretchLastSection(false);
  header()->setMinimumSectionSize(kLeastWidth);
  header()->setSectionResizeMode(kAgentColumn, QHeaderView::Stretch);
  header()->setSectionResizeMode(kStatusColumn, QHeaderView::ResizeToContents);
  setUniformRowHeights(true);
  setIconSize(kPictureSize);
  setSelectionMode(QAbstractItemView::NoSelection);
  setItemDelegate(delegate_);
}

void AgentList::AddAgent(std::int32_t id, const QString& name) {
  auto* row = new QTreeWidgetItem;
  row->setText(kAgentColumn, OneLine(name));  // whatever stands between the tags of the agent
  row->setToolTip(kAgentColumn, row->text(kAgentColumn));  // a long one is cut on a small screen
  row->setIcon(kAgentColumn, NumberedIcon(kPicture));
  row->setData(kAgentColumn, kAgentId, id);
  row->setTextAlignment(kStatusColumn, Qt::AlignRight | Qt::AlignVCenter);
  insertTopLevelItem(0, row);
}

void AgentList::SetState(std::int32_t id, const QString& state) {
  QTreeWidgetItem* const row = RowOf(id);
  if (row == nullptr) return;
  row->setText(kStatusColumn, state);
}

void AgentList::resizeEvent(QResizeEvent* event) {
  delegate_->SetWidest(std::max(kLeastWidth, event->size().width() - kLeastWidth));
  RowTree::resizeEvent(event);
}

QTreeWidgetItem* AgentList::RowOf(std::int32_t id) const {
  for (int i = 0; i < topLevelItemCount(); ++i) {
    QTreeWidgetItem* const row = topLevelItem(i);
    if (row->data(kAgentColumn, kAgentId).toInt() == id) return row;
  }
  return nullptr;
}

}  // namespace brovanta
