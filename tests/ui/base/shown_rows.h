// What a record tree shows, for tests that look for a row by its name.
#pragma once

#include <QStringList>

#include "ui/base/record_tree.h"

namespace brovanta::test {

/// The first record with the name; an invalid index when there is none.
inline QModelIndex RecordNamed(const RecordTree& tree, const QString& name) {
  for (std::size_t heading = 0; heading < tree.rows().HeadingCount(); ++heading) {
    int number = 0;
    for (const RecordRow& record : tree.rows().Under(heading)) {
      if (record.info().name == name) {
        return tree.RecordIndex(static_cast<int>(heading), number);
      }
      ++number;
    }
  }
  return {};
}

/// The headings in brackets, and under each what `words` makes of its records.
template <typename Words>
QStringList ShownRows(const RecordTree& tree, Words words) {
  QStringList rows;
  for (std::size_t heading = 0; heading < tree.rows().HeadingCount(); ++heading) {
    rows << QStringLiteral("[%1]").arg(tree.rows().Heading(heading).Text().trimmed());
    for (const RecordRow& record : tree.rows().Under(heading)) rows << words(record.info());
  }
  return rows;
}

/// "Milk@Corner Shop", or the name alone.
inline QString NameAndStore(const TreeItemInfo& info) {
  return info.storeName.isEmpty() ? info.name : info.name + QLatin1Char('@') + info.storeName;
}

}  // namespace brovanta::test
