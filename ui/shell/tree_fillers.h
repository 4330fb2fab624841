// Fills the record tree from the program's collections.
#pragma once

#include <QString>

#include "ui/shell/main_state.h"

namespace brovanta {

class DateHeadings;
class RecordTree;

/// Runs the query and makes a row of each product or purchase. The query's code; without success
/// there are no rows. Touches no widget, so that any thread may do it while no other uses the
/// database.
int ReadProductRows(ShoppingDatabase& database, const ProductFilter& query, DateHeadings& headings);

/// Products still to buy or purchases made, by the filter's kind. Like all fillers it empties the
/// tree, runs the query with the filter and returns the query's code; with an error the tree stays
/// empty.
int FillProducts(RecordTree& tree, MainState& state);

int FillCoupons(RecordTree& tree, MainState& state);

/// The saved searches of the period; the results of each stay unread.
int FillWebSearches(RecordTree& tree, MainState& state);

/// What an empty tree says, given the code that its filler returned.
[[nodiscard]] QString EmptyListWords(const MainState& state, int view_mode, int code);

}  // namespace brovanta
