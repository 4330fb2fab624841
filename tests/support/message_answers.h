// Answers message boxes through clicks on their buttons and notes what they said.
#pragma once

#include <QList>
#include <QMessageBox>
#include <QObject>
#include <QStringList>

namespace brovanta::test {

/// While it lives, each message box that appears is answered with the next of the given buttons; a
/// box beyond them is closed with Escape. One object at a time.
class MessageAnswers : public QObject {
 public:
  explicit MessageAnswers(QList<QMessageBox::StandardButton> answers = {});
  ~MessageAnswers() override;

  /// Answers the next box with this button, before the given ones.
  void AnswerNext(QMessageBox::StandardButton answer) { answers_.prepend(answer); }

  /// The boxes' texts in the order of their appearance.
  [[nodiscard]] const QStringList& texts() const { return texts_; }
  [[nodiscard]] const QStringList& captions() const { return captions_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void AnswerBox(QMessageBox* box);

  QList<QMessageBox::StandardButton> answers_;
  QStringList texts_;
  QStringList captions_;
};

}  // namespace brovanta::test
