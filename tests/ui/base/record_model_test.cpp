#include "ui/base/record_model.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>

#include "tests/support/zone_guard.h"

namespace brovanta {
namespace {

constexpr DateStamp kSaturday = 1795222800;  // 2026-11-21 01:00:00 UTC

class RecordModelTest : public testing::Test {
 protected:
  /// Two days with two records and one.
  void Fill() {
    RecordRows rows;
    rows.Reserve(3);
    rows.AddHeading({kSaturday, 2});
    rows.Add({.id = 11, .name = "Bread"}, {});
    rows.Add({.id = 12, .name = "Milk", .storeName = QStringLiteral("Corner")}, {});
    rows.AddHeading({kSaturday - 86400, 2});
    rows.Add({.id = 13, .name = "Soap"}, {});
    model_.SetRows(std::move(rows));
  }

  test::ZoneGuard zone_{"UTC"};
  RecordModel model_;
  // Fails the test as soon as the model contradicts itself.
  QAbstractItemModelTester tester_{&model_, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(RecordModelTest, StartsEmpty) {
  EXPECT_EQ(model_.rowCount(), 0);
  EXPECT_FALSE(model_.index(0, 0).isValid());
  EXPECT_EQ(model_.HeadingAt({}), nullptr);
  EXPECT_EQ(model_.RecordAt({}), nullptr);
}

TEST_F(RecordModelTest, RecordsStandUnderTheirHeadings) {
  Fill();
  ASSERT_EQ(model_.rowCount(), 2);
  const QModelIndex saturday = model_.index(0, 0);
  const QModelIndex friday = model_.index(1, 0);
  EXPECT_EQ(model_.rowCount(saturday), 2);
  EXPECT_EQ(model_.rowCount(friday), 1);
  EXPECT_EQ(model_.RecordAt(model_.index(1, 0, saturday))->info().id, 12);
  EXPECT_EQ(model_.RecordAt(model_.index(0, 0, friday))->info().id, 13);
  EXPECT_EQ(model_.index(0, 0, friday).parent(), friday);
  EXPECT_FALSE(saturday.parent().isValid());
  EXPECT_FALSE(model_.index(2, 0, saturday).isValid());
  EXPECT_FALSE(model_.index(0, 1, saturday).isValid());
}

TEST_F(RecordModelTest, ARowIsAHeadingOrARecord) {
  Fill();
  const QModelIndex heading = model_.index(0, 0);
  const QModelIndex record = model_.index(0, 0, heading);
  EXPECT_NE(model_.HeadingAt(heading), nullptr);
  EXPECT_EQ(model_.RecordAt(heading), nullptr);
  EXPECT_EQ(model_.HeadingAt(record), nullptr);
  EXPECT_NE(model_.RecordAt(record), nullptr);
  EXPECT_EQ(model_.rowCount(record), 0);
}

TEST_F(RecordModelTest, TextsAreBlanksAndWordsAreForScreenReaders) {
  Fill();
  const QModelIndex heading = model_.index(0, 0);
  const QModelIndex record = model_.index(1, 0, heading);
  EXPECT_EQ(heading.data().toString().toStdString(), "Saturday 11/21/2026  ");
  EXPECT_EQ(heading.data(Qt::AccessibleTextRole).toString().toStdString(), "Saturday 11/21/2026");
  EXPECT_EQ(record.data().toString().toStdString(), std::string(46, ' '));
  EXPECT_EQ(record.data(Qt::AccessibleTextRole).toString().toStdString(), "Milk, Corner");
  EXPECT_FALSE(record.data(Qt::DecorationRole).isValid());
}

TEST_F(RecordModelTest, NewRowsTakeThePlaceOfAll) {
  Fill();
  const QPersistentModelIndex old = model_.index(0, 0);
  model_.SetRows({});
  EXPECT_EQ(model_.rowCount(), 0);
  EXPECT_FALSE(old.isValid());
}

}  // namespace
}  // namespace brovanta
