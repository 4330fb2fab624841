// The chapters of the tour, in the order in which they are played.
#pragma once

#include "tests/tour/robot.h"
#include "tests/tour/stage.h"

namespace brovanta::tour {

/// A first start: sets the tax, meets two messages, types the household's list in, and looks at it
/// by day, week and month. Afterwards the files hold every field.
void TypeTheListIn(Robot& robot, Stage& stage);

/// A week later: overdue rows, filters, find, purchase, edit, delete, the other tabs, the calendar.
void LiveWithTheList(Robot& robot, Stage& stage);

/// Coupons: made, edited, picked, made on the spot, found, cleared, and one that is gone.
/// Afterwards the files hold every coupon and link.
void UseCoupons(Robot& robot, Stage& stage);

/// Another start: everything is still there. Pictures of the screens at this size.
void LookAround(Robot& robot, Stage& stage, QSize size);

/// The same in German, and by night.
void LookByNight(Robot& robot, Stage& stage);

/// A household without coupons and a server beside it: updates, views a coupon's page, cancels, and
/// meets a server that is gone. Nothing where this build has no server.
void BringUpToDate(Robot& robot, Stage& stage);

/// A household without shops and a server beside it that plays some: searches, stops the one that
/// is slow, opens the results again, views one, deletes two of them and then the search. Nothing
/// where this build has no server.
void SearchTheWeb(Robot& robot, Stage& stage);

/// The long list from real life, where its file is at hand; otherwise nothing.
void EnterALongList(Robot& robot, Stage& stage, const std::string& csv_path);

}  // namespace brovanta::tour
