#include "app/application.h"

#include <QApplication>
#include <memory>
#include <utility>

#include "app/backup_at_start.h"
#include "app/first_run_setup.h"
#include "db/shopping_database.h"
#include "platform/app_options.h"

namespace brovanta {

namespace {

void BringToFront(QWidget* window) {
  window->setWindowState((window->windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
  window->raise();
  window->activateWindow();
}

}  // namespace

Application::Application(platform::RegistryStore store, std::string data_folder,
                         std::unique_ptr<FirstRows> first_rows)
    : store_(std::move(store)),
      data_folder_(std::move(data_folder)),
      first_rows_(std::move(first_rows)) {}

SearchManager* Application::GetSearchManager() {
  if (!std::exchange(searches_made_, true)) searches_ = std::make_unique<SearchManager>();
  if (searches_ != nullptr) return searches_.get();
  return main_window_ == nullptr ? nullptr : main_window_->searches();
}

bool Application::InitInstance() {
  (void)GetSearchManager();
  AppOptions options(store_, AppOptions::kKeyPath);
  if (first_rows_ == nullptr) {
    first_rows_ = std::make_unique<FirstRows>(std::make_unique<ShoppingDatabase>(), data_folder_);
  }
  MainDialog dialog(options, std::move(first_rows_), std::move(searches_), data_folder_);
  dialog.SetUpdateServer(UpdateServer(store_));
  const BackupAtStart backup(data_folder_, dialog);
  main_window_ = &dialog;
  dialog.exec();
  return false;
}

void Application::RaiseWindow() {
  if (main_window_ == nullptr) return;
  BringToFront(main_window_);
  QWidget* const dialog = QApplication::activeModalWidget();
  if (dialog != nullptr && dialog != main_window_) BringToFront(dialog);
}

}  // namespace brovanta
