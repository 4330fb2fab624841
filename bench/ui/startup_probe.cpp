// Comes up, paints once, says so by a byte on standard output and ends: the main screen over a data
// folder, or an empty dialog beside it. The start-up benchmark runs it both ways.
#include <unistd.h>

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <cstring>
#include <future>
#include <memory>

#include "platform/app_options.h"
#include "ui/base/theme.h"
#include "ui/base/warm_up.h"
#include "ui/shell/first_rows.h"
#include "ui/shell/main_dialog.h"

namespace {

// Ends the event loop once the window has been painted and what that queued has been done.
class EndAfterFirstPaint : public QObject {
 public:
  explicit EndAfterFirstPaint(QDialog& dialog) : QObject(&dialog), dialog_(dialog) {
    dialog.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Paint && !painted_) {
      painted_ = true;
      QTimer::singleShot(0, &dialog_, [] { _exit(write(STDOUT_FILENO, "!", 1) == 1 ? 0 : 1); });
    }
    return QObject::eventFilter(object, event);
  }

 private:
  QDialog& dialog_;
  bool painted_ = false;
};

[[noreturn]] void RunToFirstPaint(QDialog& dialog) {
  const EndAfterFirstPaint end(dialog);
  dialog.exec();
  _exit(1);
}

}  // namespace

int main(int argc, char** argv) {
  using namespace brovanta;
  if (argc < 3 || std::strcmp(argv[1], "--main") != 0) {
    const QApplication application(argc, argv);
    QDialog empty;
    empty.resize(360, 640);
    RunToFirstPaint(empty);
  }
  const std::string folder = argv[2];
  const WarmUp warm_up;
  std::promise<void> connected;
  auto first_rows = std::make_unique<FirstRows>(std::make_unique<ShoppingDatabase>(), folder,
                                                connected.get_future().share());
  QApplication application(argc, argv);
  connected.set_value();
  warm_up.Wait();
  ApplyTheme(application);
  platform::RegistryStore store(folder + "/registry.reg");
  AppOptions options(store, AppOptions::kKeyPath);
  MainDialog main_dialog(options, std::move(first_rows), std::make_unique<SearchManager>(), folder);
  RunToFirstPaint(main_dialog);
}
