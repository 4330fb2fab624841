#include "ui/websearch/search_header.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QVBoxLayout>

#include "tests/support/form_check.h"

namespace brovanta {
namespace {

TEST(SearchHeaderTest, ShowsItsTextInBoldBesideThePicture) {
  SearchHeader header;
  header.SetText(QStringLiteral("Search: <b>soap</b>"));
  auto* label = header.findChild<QLabel*>(QStringLiteral("headerLabel"));
  ASSERT_NE(label, nullptr);
  EXPECT_EQ(label->text(), QStringLiteral("Search: <b>soap</b>"));
  EXPECT_EQ(label->textFormat(), Qt::PlainText);
  EXPECT_TRUE(label->font().bold());
  const QList<QLabel*> labels = header.findChildren<QLabel*>();
  ASSERT_EQ(labels.size(), 2);
  EXPECT_FALSE((labels[0] == label ? labels[1] : labels[0])->pixmap().isNull());
}

TEST(SearchHeaderTest, ALongTextTakesMoreLinesAndNoMoreWidth) {
  QWidget window;
  auto* layout = new QVBoxLayout(&window);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* header = new SearchHeader(&window);
  layout->addWidget(header);
  layout->addStretch();
  window.resize(320, 480);
  header->SetText(QStringLiteral("Search: soap"));
  window.show();
  QCoreApplication::processEvents();
  const int low = header->height();
  header->SetText(QString(100, QLatin1Char('W')));
  EXPECT_TRUE(QTest::qWaitFor([&] { return header->height() > low; }));
  EXPECT_EQ(window.width(), 320);
  EXPECT_EQ(test::Clipped(&window), "");
}

}  // namespace
}  // namespace brovanta
