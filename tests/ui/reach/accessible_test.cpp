// Every screen as a screen reader gets it, within the process.
#include <gmock/gmock.h>

#include <QAccessibleWidget>
#include <QAction>
#include <QDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "tests/ui/reach/accessible_check.h"
#include "tests/ui/reach/screens.h"
#include "tests/ui/reach/text_lines.h"
#include "ui/base/color_button.h"

namespace brovanta::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(AccessibleTest, EveryControlOfEveryScreenSaysWhatItIs) {
  Screens screens;
  int seen = 0;
  screens.ForEach([&seen](const OpenScreen& open) {
    EXPECT_THAT(Lines(AccessibleComplaints(*open.screen)), IsEmpty()) << open.name;
    ++seen;
  });
  EXPECT_EQ(seen, 82);
}

TEST(AccessibleTest, RowsAreReadAsSentences) {
  Screens screens;
  std::map<std::string, std::vector<std::string>> rows;
  screens.ForEachWindow([&rows](const OpenScreen& open) {
    for (const char* name : {"recordTree", "agentList", "resultList"}) {
      auto* list = open.screen->findChild<QWidget*>(QString::fromLatin1(name));
      if (list != nullptr) rows[open.name] = Lines(SpokenRows(*list));
    }
  });
  EXPECT_THAT(rows["main, products"],
              ElementsAre("Saturday 11/21/2026",
                          "Extra virgin olive oil, cold pressed, 750 ml, Mediterranean "
                          "Delicatessen & Wine, due today",
                          "Bread, due today", "Thursday 11/19/2026",
                          "Milk, Corner Shop, 2 days overdue, weekly"));
  EXPECT_THAT(rows["main, purchases"], ElementsAre("Saturday 11/21/2026", "Bread, bought at 9:00"));
  EXPECT_THAT(rows["progress, searching"],
              ElementsAre("Shop 3, searching", "Shop 2, 12 results", "Shop 1, failed"));
  const auto coupons =
      ElementsAre("Saturday 11/21/2026", "Spring offer, Corner Shop, 10% off, until 12/21/2026",
                  "Two for the price of one on everything, Corner Shop, 10% off, until 12/21/2026",
                  "Spring offer, Corner Shop, 1234.50 off, until 12/21/2026");
  EXPECT_THAT(rows["main, coupons"], coupons);
  EXPECT_THAT(rows["picker"], coupons) << "whole, although its rows are cut";
  EXPECT_THAT(rows["main, searches"], ElementsAre("Saturday 11/21/2026", "coffee machine"));
  EXPECT_THAT(rows["results"],
              ElementsAre("Soap, $9.90, Corner Shop",
                          "Universal coffee machine with timer, thermal jug and permanent filter, "
                          "brushed steel, $9.90, Corner Shop"));
  EXPECT_THAT(rows["main, no products"], IsEmpty());
}

TEST(AccessibleTest, AListWithoutRowsSaysWhatStandsOnItsGround) {
  Screens screens;
  screens.ForEachWindow([](const OpenScreen& open) {
    if (open.name != "main, no coupons") return;
    auto* tree = open.screen->findChild<QWidget*>(QStringLiteral("recordTree"));
    ASSERT_NE(tree, nullptr);
    auto* spoken = QAccessible::queryAccessibleInterface(tree);
    EXPECT_EQ(spoken->text(QAccessible::Name).toStdString(), "Coupons");
    EXPECT_EQ(spoken->text(QAccessible::Description).toStdString(),
              "No coupons on this day\nAdd one with +, or get new ones by Update.");
  });
}

/// A small form that is in order until somebody spoils it.
class SpoiledFormTest : public testing::Test {
 protected:
  SpoiledFormTest() {
    form_.setWindowTitle(QStringLiteral("Form"));
    auto* layout = new QFormLayout(&form_);
    layout->addRow(label_, edit_);
    layout->addRow(button_);
    label_->setBuddy(edit_);
    form_.show();
  }

  std::vector<std::string> Complaints() { return Lines(AccessibleComplaints(form_)); }

  QDialog form_;
  QLabel* label_ = new QLabel(QStringLiteral("Price:"));
  QLineEdit* edit_ = new QLineEdit;
  QPushButton* button_ = new QPushButton(QStringLiteral("OK"));
};

TEST_F(SpoiledFormTest, IsInOrderBeforeThat) { EXPECT_THAT(Complaints(), IsEmpty()); }

TEST_F(SpoiledFormTest, AButtonWithoutANameIsSeen) {
  button_->setText(QString());
  EXPECT_THAT(Complaints(), ElementsAre("Button QPushButton: no name",
                                        "Button QPushButton: a picture that says nothing more"));
}

TEST_F(SpoiledFormTest, AFieldWhoseLabelIsNotItsOwnIsSeen) {
  label_->setBuddy(nullptr);
  EXPECT_THAT(Complaints(), ElementsAre("StaticText QLabel: stands before no field",
                                        "EditableText QLineEdit: no label"));
}

TEST_F(SpoiledFormTest, AFieldThatIsCalledByItsContentsOnlyIsSeen) {
  label_->setBuddy(nullptr);
  label_->setText(QStringLiteral("Price"));
  edit_->setText(QStringLiteral("9.90"));
  EXPECT_THAT(Complaints(), ElementsAre("EditableText QLineEdit: no label"));
}

TEST_F(SpoiledFormTest, APictureWithoutANameIsSeen) {
  QPixmap picture(16, 16);
  picture.fill(Qt::red);
  auto* logo = new QLabel;
  logo->setPixmap(picture);
  form_.layout()->addWidget(logo);
  logo->show();
  EXPECT_THAT(Complaints(), ElementsAre("Graphic QLabel: no name"));
}

TEST_F(SpoiledFormTest, AToolThatIsAPictureOnlyMustSayMore) {
  QPixmap picture(16, 16);
  picture.fill(Qt::red);
  auto* tool = new QToolButton;
  tool->setIcon(picture);
  tool->setAccessibleName(QStringLiteral("Add"));
  form_.layout()->addWidget(tool);
  tool->show();
  EXPECT_THAT(Complaints(), ElementsAre("Button QToolButton: a picture that says nothing more"));
  tool->setToolTip(QStringLiteral("Add (Ins)"));
  EXPECT_THAT(Complaints(), IsEmpty());
}

QAccessibleInterface* AsGrouping(const QString& /*class_name*/, QObject* object) {
  auto* const button = qobject_cast<QPushButton*>(object);
  if (button == nullptr) return nullptr;
  return new QAccessibleWidget(button, QAccessible::Grouping, button->text());
}

TEST_F(SpoiledFormTest, AControlWithAnotherRoleIsSeen) {
  QAccessible::installFactory(&AsGrouping);
  auto* other = new QPushButton(QStringLiteral("More"));
  form_.layout()->addWidget(other);
  other->show();
  EXPECT_THAT(Complaints(), ElementsAre("Grouping QPushButton: the role of another control"));
  QAccessible::removeFactory(&AsGrouping);
}

}  // namespace
}  // namespace brovanta::test
