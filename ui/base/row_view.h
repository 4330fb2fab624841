// What every list of painted rows on the screens has in common, whatever model it shows.
#pragma once

#include <QModelIndex>
#include <QString>

class QTreeView;

namespace brovanta {

/// No header and no marks of a tree, one row selected at most, scrolls by finger.
void SetUpRowView(QTreeView& view);

/// The selected row, which is the caret; none gives an invalid index.
[[nodiscard]] QModelIndex CaretOf(const QTreeView& view);

/// Rows are selected by the user only. The toolkit takes the first row as its current one when the
/// focus comes in, and the next arrow key would pass it over: to be called after that.
void DropFocusRow(QTreeView& view);

/// Tells screen readers what a list without rows says on its ground. To be called whenever the
/// words change, or whether there are rows.
void DescribeEmptyView(QTreeView& view, const QString& empty_text);

/// How high a list of this width must be to show the words for a list without rows, in the least
/// letters that they get.
[[nodiscard]] int EmptyTextHeight(const QTreeView& view, const QString& empty_text, int width);

/// Paints quiet words on the ground of a list without rows, and the frame of the caret, or of the
/// list where there is none, while the list has the focus. To be called when the rows have been
/// painted.
void PaintRowViewSigns(QTreeView& view, const QString& empty_text);

}  // namespace brovanta
