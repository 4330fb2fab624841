#include "tests/ui/websearch/results_form.h"

#include <QLabel>
#include <QTest>
#include <filesystem>

#include "ui/base/color_button.h"
#include "ui/base/picture_bar.h"
#include "ui/websearch/search_results_dialog.h"

namespace brovanta::test {

Bytes Raw(const RawShownResult& result) {
  return Join({RawNumbers(result.id, result.price, result.status), RawText(result.title),
               RawText(result.text), RawText(result.url), RawText(result.site)});
}

ResultsFormTest::ResultsFormTest() {
  std::filesystem::create_directory(folder_.File("WebSearch"));
  EXPECT_EQ(searches_.SetSearchFolder(folder_.path()), 0);
}

void ResultsFormTest::Results(const std::vector<RawShownResult>& results) const {
  std::vector<Bytes> raw;
  for (const RawShownResult& result : results) raw.push_back(Raw(result));
  folder_.Write("WebSearch/7.dat", RawResults(raw));
}

int ResultsFormTest::Run(const Act& act) {
  SearchResultsDialog dialog(searches_.saved_searches(), kNumber, QStringLiteral("soap"), nullptr);
  return RunDialog(dialog, act);
}

std::string ResultsFormTest::Rows() {
  QStringList rows;
  for (int i = 0; i < List()->topLevelItemCount(); ++i) {
    const QTreeWidgetItem* row = List()->topLevelItem(i);
    rows << row->text(0) + QLatin1Char(' ') + row->data(0, Qt::UserRole).toString();
  }
  return rows.join(QLatin1Char('|')).toStdString();
}

void ResultsFormTest::Select(int row) {
  QTreeWidgetItem* item = List()->topLevelItem(row);
  ASSERT_NE(item, nullptr) << "no row " << row;
  List()->scrollToItem(item);
  QTest::mouseClick(List()->viewport(), Qt::LeftButton, {}, List()->visualItemRect(item).center());
}

void ResultsFormTest::Tool(int command) {
  Press(qPrintable(QStringLiteral("tool%1").arg(command)));
}

std::vector<int> ResultsFormTest::Enabled() {
  std::vector<int> enabled;
  for (const int command : {2795, 2805, 2796}) {
    if (Find<PictureBar>("commandBar")->action(command)->isEnabled()) enabled.push_back(command);
  }
  return enabled;
}

std::string ResultsFormTest::Label(const char* name) {
  return Find<QLabel>(name)->text().toStdString();
}

}  // namespace brovanta::test
