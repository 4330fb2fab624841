#include "tests/ui/shell/update_screen.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <algorithm>
#include <utility>

namespace brovanta::test {

ShownState StateOf(QDialog& dialog) {
  const auto* ok = dialog.findChild<QPushButton*>(QStringLiteral("okButton"));
  const auto* cancel = dialog.findChild<QPushButton*>(QStringLiteral("cancelButton"));
  const auto* status = dialog.findChild<QLabel*>(QStringLiteral("statusLabel"));
  const auto* bar = dialog.findChild<QProgressBar*>(QStringLiteral("progressBar"));
  if (ok == nullptr || cancel == nullptr || status == nullptr || bar == nullptr) return {};
  return {status->text().toStdString(), ok->isEnabled(), cancel->isEnabled(), bar->value()};
}

StateWatch::StateWatch(QDialog& dialog) : dialog_(&dialog) {
  dialog.installEventFilter(this);
  Note();
}

void StateWatch::When(Test test, std::function<void()> action) {
  if (dialog_ != nullptr && test(StateOf(*dialog_))) {
    QTimer::singleShot(0, dialog_, std::move(action));
    return;
  }
  waiting_.push_back({std::move(test), std::move(action)});
}

bool StateWatch::Has(const ShownState& state) const {
  return std::find(states_.begin(), states_.end(), state) != states_.end();
}

bool StateWatch::eventFilter(QObject* watched, QEvent* event) {
  // The type first: other events come while the dialog is destroyed and is a QDialog no more.
  if (event->type() == QEvent::MetaCall && watched == dialog_) {
    Note();
    QTimer::singleShot(0, this, [this] { Note(); });
  }
  return false;
}

void StateWatch::Note() {
  if (dialog_ == nullptr) return;
  const ShownState state = StateOf(*dialog_);
  if (!states_.empty() && states_.back() == state) return;
  states_.push_back(state);
  for (std::size_t i = 0; i < waiting_.size();) {
    if (!waiting_[i].test(state)) {
      ++i;
      continue;
    }
    QTimer::singleShot(0, dialog_, std::move(waiting_[i].action));
    waiting_.erase(waiting_.begin() + static_cast<std::ptrdiff_t>(i));
  }
}

StateWatch::Test Line(const std::string& text) {
  return [text](const ShownState& state) { return state.text == text; };
}

bool IsRunning(const ShownState& state) { return state.cancel; }
bool HasFailed(const ShownState& state) { return state.ok; }

void UpdateScreenTest::Serve() {
  server_ =
      std::make_unique<LoopbackServer>([this](LoopbackPeer& peer, const std::string& request) {
        std::string page = RequestedObject(request);
        page.resize(std::min(page.size(), page.find('?')));
        const auto answer = answers_.find(page);
        if (held_.count(page) != 0) {
          peer.WaitUntilClosed();
        } else if (const auto reply = replies_.find(page); reply != replies_.end()) {
          peer.Send(reply->second);
        } else if (answer != answers_.end()) {  // who has cancelled in time asks for nothing
          peer.Send(HttpReply("200 OK", answer->second));
        }
      });
}

std::vector<std::string> UpdateScreenTest::Objects() const {
  std::vector<std::string> objects;
  for (const std::string& request : server_->requests()) {
    objects.push_back(RequestedObject(request));
  }
  return objects;
}

UpdateJob UpdateScreenTest::ServerJob() {
  UpdateJob job = Job();
  job.server.address = server_->Url();
  job.download = UpdateJob::DownloadFromServer;
  return job;
}

void UpdateScreenTest::Click(QDialog& dialog, const char* button_name) {
  auto* const button = dialog.findChild<QPushButton*>(QString::fromLatin1(button_name));
  ASSERT_NE(button, nullptr) << button_name;
  QTest::mouseClick(button, Qt::LeftButton);
}

int UpdateScreenTest::Run(UpdateJob job,
                          const std::function<void(UpdateDialog&, StateWatch&)>& prepare) {
  UpdateDialog dialog(database_, std::move(job), nullptr);
  StateWatch watch(dialog);
  if (prepare) prepare(dialog, watch);
  const int result = dialog.exec();
  states_ = watch.states();
  return result;
}

}  // namespace brovanta::test
