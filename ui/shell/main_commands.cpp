#include "ui/shell/main_commands.h"

#include <algorithm>
#include <utility>

#include "platform/file.h"
#include "ui/base/message_box.h"
#include "ui/base/modal_dialog.h"
#include "ui/base/record_tree.h"
#include "ui/base/wide_text.h"
#include "ui/product/discount_dialog.h"
#include "ui/product/find_dialog.h"
#include "ui/product/product_dialog.h"
#include "ui/shell/command_bar.h"
#include "ui/shell/options_dialog.h"
#include "ui/shell/update_dialog.h"
#include "ui/websearch/search_dialog.h"
#include "ui/websearch/search_results_dialog.h"

namespace brovanta {
namespace {

/// What stands for the result of a dialog that a list or a record does not have.
constexpr int kNoDialog = ModalDialog::kCancelled;

}  // namespace

MainCommands::MainCommands(QWidget& window, RecordTree& tree, MainState& state, Refresh refresh)
    : window_(window), tree_(tree), state_(state), refresh_(std::move(refresh)) {}

void MainCommands::Run(int command) {
  switch (command) {
    case kMenuAdd:
    case kToolAdd:
      return Add();
    case kMenuEdit:
    case kToolEdit:
      return Edit();
    case kMenuDelete:
    case kToolDelete:
      return Delete();
    case kMenuPurchase:
    case kToolPurchase:
      return Purchase();
    case kMenuFind:
    case kToolFind:
      return Find();
    case kMenuUpdate:
      return Update();
    case kMenuOptions:
      return Options();
    default:
      return;
  }
}

std::optional<TreeItemInfo> MainCommands::Selected() const { return tree_.CaretInfo(); }

void MainCommands::Add() {
  if (RunAddDialog() == ModalDialog::kCompleted) refresh_(true);
}

int MainCommands::RunAddDialog() {
  switch (state_.list_id) {
    case kProductsList:
      return ProductDialog(state_.options.tax(), nullptr, kProductMode, *state_.database,
                           state_.update_server, &window_)
          .exec();
    case kCouponsList:
      return DiscountDialog(nullptr, kNewDiscountMode, *state_.database, state_.update_server,
                            &window_)
          .exec();
    case kWebSearchesList:
      return SearchDialog(*state_.searches, &window_).exec();
    default:
      return kNoDialog;
  }
}

void MainCommands::Edit() {
  const auto selected = Selected();
  if (!selected) return;
  if (RunEditDialog(*selected) == ModalDialog::kCompleted) refresh_(true);
}

int MainCommands::RunEditDialog(const TreeItemInfo& selected) {
  switch (state_.list_id) {
    case kProductsList:
      return EditProduct(selected.id, kProductMode);
    case kCouponsList:
      return EditCoupon(selected.id, selected.purchaseType);
    case kPurchasesList:
      return EditProduct(selected.id, kPurchaseMode);
    case kWebSearchesList:
      ShowSearchResults(selected.id);
      return kNoDialog;  // the list stays as it is
    default:
      return kNoDialog;
  }
}

int MainCommands::EditProduct(std::int32_t id, int mode) {
  const ProductRecord* found = state_.database->products().Find(id);
  if (found == nullptr) return kNoDialog;
  const ProductRecord record = *found;  // the list's own goes when the dialog saves
  ProductDialog dialog(state_.options.tax(), &record, mode, *state_.database, state_.update_server,
                       &window_);
  return dialog.exec();
}

int MainCommands::EditCoupon(std::int32_t id, std::int16_t source) {
  const std::optional<DiscountRecord> record =
      state_.database->discounts().FindToChange(id, source);
  if (!record) return kNoDialog;
  DiscountDialog dialog(&*record, kEditDiscountMode, *state_.database, state_.update_server,
                        &window_);
  return dialog.exec();
}

void MainCommands::ShowSearchResults(std::int32_t number) {
  const SavedSearches& saved = state_.searches->saved_searches();
  const auto found =
      std::find_if(saved.searches().begin(), saved.searches().end(),
                   [number](const SavedSearch& search) { return search.Number == number; });
  if (found == saved.searches().end()) return;
  SearchResultsDialog(saved, number, WideText(found->Words), &window_).exec();
}

void MainCommands::Delete() {
  const auto selected = Selected();
  if (!selected) return;
  switch (state_.list_id) {
    case kProductsList:
      return DeleteProduct(*selected);
    case kCouponsList:
      if (!Confirm(tr("Do you want to permanently delete the selected coupon?"))) {
        return;
      }
      // The rebuilt tree shows the outcome; so it is for products and purchases.
      static_cast<void>(
          state_.database->discounts().Mark(selected->id, selected->purchaseType, kMarkDeleted));
      return refresh_(true);
    case kPurchasesList:
      if (Confirm(tr("Do you want to permanently delete the selected purchase?"))) {
        MarkProduct(kPurchaseKind, selected->id, kProductDelete);
      }
      return;
    case kWebSearchesList:
      if (Confirm(tr("Do you want to permanently delete the selected web search and "
                     "all its results?"))) {
        DeleteSearch(selected->id);
      }
      return;
    default:
      return;
  }
}

void MainCommands::DeleteProduct(const TreeItemInfo& selected) {
  if (!IsRecurring(selected.purchaseType)) {
    if (Confirm(tr("Do you want to permanently delete the selected product?"))) {
      MarkProduct(kProductKind, selected.id, kProductDelete);
    }
    return;
  }
  const Answer answer = AskYesNoCancel(
      &window_, tr("The selected product was setup as a recurring purchase.\r\n"
                   "Do you want to permanently delete all instances in the recurring "
                   "series for this product??"));
  switch (answer) {
    case Answer::kYes:
      return MarkProduct(kProductKind, selected.id, kProductDelete);
    case Answer::kNo:
      return MarkProduct(kProductKind, selected.id, kProductPassOver);
    case Answer::kCancel:
      return;
  }
}

void MainCommands::DeleteSearch(std::int32_t number) {
  SavedSearches& saved = state_.searches->saved_searches();
  // The entry first: one without results would be an error to look at.
  if (saved.DeleteSavedSearch(number) > 0) {
    static_cast<void>(platform::RemoveFile(saved.ResultsPath(number)));
  }
  refresh_(true);
}

void MainCommands::Purchase() {
  const auto selected = Selected();
  if (!selected || state_.list_id != kProductsList) return;
  if (Confirm(tr("Do you want to mark the selected product as purchased?"))) {
    MarkProduct(kProductKind, selected->id, kProductPurchased);
  }
}

bool MainCommands::Confirm(const QString& question) {
  return AskYesNo(&window_, question) == Answer::kYes;
}

void MainCommands::MarkProduct(int kind, std::int32_t id, int action) {
  static_cast<void>(state_.database->products().Mark(kind, id, action));
  refresh_(true);
}

void MainCommands::Find() {
  if (state_.list_id == kWebSearchesList) return;
  FindTextDialog dialog(&window_, state_.filter.find_text);
  if (dialog.exec() != ModalDialog::kCompleted) return;
  state_.filter.find_text = dialog.find_text();
  refresh_(false);
}

void MainCommands::Update() {
  UpdateJob job;
  job.server.address = state_.update_server;
  job.server.user = UserIdentifier(state_.options.country(), state_.options.zip_code());
  job.configuration_path = state_.searches->configuration_path();
  UpdateDialog dialog(*state_.database, std::move(job), &window_);
  if (dialog.exec() == ModalDialog::kCompleted) refresh_(false);
}

void MainCommands::Options() {
  OptionsDialog(state_.options, &window_).exec();  // nothing shown depends on them
}

}  // namespace brovanta
