// The feeds of the update server: coupons into the discounts, entries into a name list. Their
// format is described in docs/formats/feeds.md.
#pragma once

#include <string>

#include "db/discount_list.h"
#include "db/name_list.h"

namespace brovanta {

/// Adds the coupons of the feed at the documented path to the discounts, all in one unit of work.
/// Kept: one that is there already is added again (the server is asked for higher ids only), and
/// one without a store or category gets a new entry with an empty name in that list.
/// 0, ERR_OPEN, ERR_IO or ERR_FORMAT for a feed that cannot be read. Kept: coupons that the
/// database does not take are passed over without a word.
[[nodiscard]] int ImportCoupons(DiscountList& discounts, const std::string& path);

/// Puts the entries of the feed at the documented path into the list in memory; an id that is there
/// gets the new name. Writing the list is the caller's. Kept: an entry without a name or with an id
/// below 1 ends the import, one whose name has less than 2 characters is passed over, and a name of
/// 50 characters or more fills its field without a terminator. Codes as above; nothing has changed
/// then.
[[nodiscard]] int ImportList(NameList& names, const std::string& path);

/// ImportList and the writing of the list, as one step: entries that another program has put into
/// the file since stay. Codes as above, or those of NameList::Save; the list in memory is as before
/// then.
[[nodiscard]] int ImportAndSaveList(NameList& names, const std::string& feed_path,
                                    const std::string& list_path);

}  // namespace brovanta
