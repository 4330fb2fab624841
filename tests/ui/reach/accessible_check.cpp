#include "tests/ui/reach/accessible_check.h"

#include <QAbstractSpinBox>
#include <QAccessible>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTabBar>
#include <QToolButton>
#include <QTreeView>
#include <map>
#include <optional>

#include "ui/base/color_button.h"

namespace brovanta::test {
namespace {

QString Trimmed(QAccessibleInterface& part, QAccessible::Text kind) {
  return part.text(kind).trimmed();
}

/// "EditableText quantityEdit", to find it by.
QString Called(QAccessibleInterface& part) {
  const QString role = QVariant::fromValue(part.role()).toString();
  const QObject* const object = part.object();
  if (object == nullptr) return role;
  return role + QLatin1Char(' ') +
         (object->objectName().isEmpty() ? QString::fromLatin1(object->metaObject()->className())
                                         : object->objectName());
}

/// What only holds others needs no name.
bool NeedsName(QAccessible::Role role) {
  switch (role) {
    case QAccessible::Client:
    case QAccessible::Border:
    case QAccessible::Pane:
    case QAccessible::Separator:
    case QAccessible::LayeredPane:
    case QAccessible::Grouping:
    case QAccessible::ScrollBar:
      return false;
    default:
      return true;
  }
}

/// The list that a field drops down is called as the field is.
bool BelongsToAField(const QAccessibleInterface& part) {
  const QAccessibleInterface* const owner = part.parent();
  return part.role() == QAccessible::List && owner != nullptr &&
         owner->role() == QAccessible::ComboBox;
}

bool IsField(const QWidget* widget) {
  return qobject_cast<const QLineEdit*>(widget) != nullptr ||
         qobject_cast<const QComboBox*>(widget) != nullptr ||
         qobject_cast<const QAbstractSpinBox*>(widget) != nullptr ||
         qobject_cast<const QPlainTextEdit*>(widget) != nullptr;
}

bool HasLabel(QAccessibleInterface& part) {
  for (const auto& [other, relation] : part.relations(QAccessible::Label)) {
    if (relation == QAccessible::Label && !Trimmed(*other, QAccessible::Name).isEmpty()) {
      return true;
    }
  }
  return false;
}

/// The role that a control of this class has, nothing for what may have any.
std::optional<QAccessible::Role> ExpectedRole(const QWidget* widget) {
  if (const auto* button = qobject_cast<const ColorButton*>(widget)) {
    if (button->isCheckable()) return QAccessible::CheckBox;
    return button->menu() != nullptr ? QAccessible::ButtonMenu : QAccessible::Button;
  }
  if (const auto* button = qobject_cast<const QToolButton*>(widget)) {
    return button->menu() != nullptr ? QAccessible::ButtonMenu : QAccessible::Button;
  }
  if (const auto* label = qobject_cast<const QLabel*>(widget)) {
    const bool picture = !label->pixmap(Qt::ReturnByValue).isNull();
    return picture ? QAccessible::Graphic : QAccessible::StaticText;
  }
  if (qobject_cast<const QPushButton*>(widget) != nullptr) return QAccessible::Button;
  if (qobject_cast<const QCheckBox*>(widget) != nullptr) return QAccessible::CheckBox;
  if (qobject_cast<const QLineEdit*>(widget) != nullptr) return QAccessible::EditableText;
  if (qobject_cast<const QPlainTextEdit*>(widget) != nullptr) return QAccessible::EditableText;
  if (qobject_cast<const QComboBox*>(widget) != nullptr) return QAccessible::ComboBox;
  if (qobject_cast<const QAbstractSpinBox*>(widget) != nullptr) return QAccessible::SpinBox;
  if (qobject_cast<const QTabBar*>(widget) != nullptr) return QAccessible::PageTabList;
  if (qobject_cast<const QProgressBar*>(widget) != nullptr) return QAccessible::ProgressBar;
  if (qobject_cast<const QTreeView*>(widget) != nullptr) return QAccessible::Tree;
  if (qobject_cast<const QCalendarWidget*>(widget) != nullptr) return QAccessible::Table;
  if (qobject_cast<const QMessageBox*>(widget) != nullptr) return QAccessible::AlertMessage;
  if (qobject_cast<const QDialog*>(widget) != nullptr) return QAccessible::Dialog;
  return std::nullopt;
}

/// "Price:" that stands before nothing, or before a field that is not there.
bool LabelsNothing(const QWidget* widget) {
  const auto* const label = qobject_cast<const QLabel*>(widget);
  if (label == nullptr || !label->text().endsWith(QLatin1Char(':'))) return false;
  const QWidget* const field = label->buddy();
  return field == nullptr || field == label || !field->isVisible();
}

bool IsSilentPicture(const QWidget* widget, QAccessibleInterface& part) {
  const auto* const button = qobject_cast<const QAbstractButton*>(widget);
  if (button == nullptr) return false;
  const auto* const tool = qobject_cast<const QToolButton*>(widget);
  const bool shows_text =
      tool != nullptr ? tool->toolButtonStyle() != Qt::ToolButtonIconOnly || tool->icon().isNull()
                      : !button->text().isEmpty();
  return !shows_text && Trimmed(part, QAccessible::Description).isEmpty();
}

class Walk {
 public:
  void Visit(QAccessibleInterface* part) {
    if (part == nullptr || !part->isValid() || part->state().invisible) return;
    Judge(*part, qobject_cast<const QWidget*>(part->object()));
    for (int i = 0; i < part->childCount(); ++i) Visit(part->child(i));
  }

  QStringList complaints;

 private:
  void Say(QAccessibleInterface& part, const char* what) {
    complaints << Called(part) + QStringLiteral(": ") + QString::fromLatin1(what);
  }

  void Judge(QAccessibleInterface& part, const QWidget* widget) {
    const QString name = Trimmed(part, QAccessible::Name);
    if (IsField(widget)) {
      // The toolkit calls a field by what stands in it.
      if (widget->accessibleName().trimmed().isEmpty() && !HasLabel(part)) Say(part, "no label");
    } else if (name.isEmpty() && NeedsName(part.role()) && !BelongsToAField(part)) {
      Say(part, "no name");
    }
    const auto role = ExpectedRole(widget);
    if (role && *role != part.role()) Say(part, "the role of another control");
    if (LabelsNothing(widget)) Say(part, "stands before no field");
    if (IsSilentPicture(widget, part)) Say(part, "a picture that says nothing more");
  }
};

}  // namespace

QStringList AccessibleComplaints(QWidget& screen) {
  Walk walk;
  walk.Visit(QAccessible::queryAccessibleInterface(&screen));
  return walk.complaints;
}

QStringList SpokenRows(QWidget& list) {
  std::map<int, QStringList> rows;
  QAccessibleInterface* const tree = QAccessible::queryAccessibleInterface(&list);
  for (int i = 0; tree != nullptr && i < tree->childCount(); ++i) {
    QAccessibleInterface* const cell = tree->child(i);
    if (cell->role() != QAccessible::TreeItem || cell->state().invisible) continue;
    rows[cell->tableCellInterface()->rowIndex()] << cell->text(QAccessible::Name);
  }
  QStringList spoken;
  for (const auto& [row, cells] : rows) spoken << cells.join(QStringLiteral(", "));
  return spoken;
}

}  // namespace brovanta::test
