// A user made of events: taps, types, chooses, answers message boxes and takes pictures.
#pragma once

#include <QDate>
#include <QString>
#include <functional>
#include <string>
#include <vector>

class QMenu;
class QPixmap;
class QWidget;

namespace brovanta::tour {

inline QString Text(const char* utf8) { return QString::fromUtf8(utf8); }

/// Drives the program through mouse and key events only. What cannot be done as described (a
/// control that is missing, hidden or disabled, a dialog that does not come) is noted as a failure,
/// and the tour goes on as well as it can. User-interface thread.
class Robot {
 public:
  /// Pictures are written to this folder, numbered in the order in which they are taken; those of
  /// the user guide also to its folder "guide", by the guide's names.
  explicit Robot(QString picture_folder, QString picture_prefix);

  /// Runs `trigger` and, as soon as the modal window that it opens is there, `act` on that window.
  /// Returns when `trigger` does, which is after the window has closed.
  void During(const std::function<void()>& trigger, const std::function<void(QWidget&)>& act);

  /// Runs `trigger` and answers the message box that it opens by a click on the button with this
  /// text; the box must say `text`. Takes a picture of it by that name.
  void AnswerMessage(const std::function<void()>& trigger, const QString& text,
                     const QString& button, const QString& picture = QStringLiteral("message"));

  void Tap(QWidget& widget);
  void Tap(QWidget& window, int control_id);            ///< by control number
  void Tap(QWidget& window, const QString& button);     ///< by the text of a button
  void TapTab(QWidget& window, int index);              ///< of the window's only tab bar
  void TapCommand(QWidget& main, int command);          ///< in the tool bar, by command number
  void ChooseTool(QWidget& main, const QString& item);  ///< from the "Tools" menu
  void Type(QWidget& field, const QString& text);       ///< replaces what stands there
  void Key(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void Choose(QWidget& combo, const QString& item);  ///< from a drop-down list, by keyboard
  void ChooseFromMenu(QWidget& window, int control_id, const QString& item);

  /// The named control, by number or object name; notes a failure and gives nullptr when missing.
  QWidget* Control(QWidget& window, int control_id);
  QWidget* Control(QWidget& window, const QString& object_name);

  /// The control that the visible label with this text is for.
  QWidget* Field(QWidget& window, const QString& label);
  [[nodiscard]] bool HasField(QWidget& window, const QString& label);

  /// Types a date into a date field, section by section.
  void TypeDate(QWidget& field, const QDate& date);

  /// Opens the period calendar of the main screen and picks the date with a click.
  void PickDate(QWidget& main, const QDate& date);

  /// Selects the row of the main screen's tree whose name it is, by a click on it.
  bool SelectRow(QWidget& main, const QString& name);
  /// The names of the record rows, top to bottom, and the headings.
  [[nodiscard]] QStringList Rows(QWidget& main);
  [[nodiscard]] QStringList Headings(QWidget& main);

  /// Takes a picture of the window.
  void Picture(QWidget& window, const QString& name);
  /// Takes a picture of the main screen with the "Tools" menu open over it.
  void PictureOfTools(QWidget& main, const QString& name);
  /// Takes a picture of the window with the menu of a control open over it.
  void PictureOfMenu(QWidget& window, int control_id, const QString& name);

  /// The file for a picture that somebody else takes.
  [[nodiscard]] QString PictureFile(const QString& name);

  /// Notes a failure unless the condition holds.
  void Expect(bool condition, const QString& what);

  [[nodiscard]] const std::vector<QString>& failures() const { return failures_; }
  [[nodiscard]] int pictures() const { return pictures_; }
  [[nodiscard]] int checks() const { return checks_; }

 private:
  // Runs `trigger`, which opens a popup menu, and `act` on that menu, then closes it.
  bool WithMenu(const std::function<void()>& trigger, const std::function<void(QMenu&)>& act);
  bool TapItem(QMenu& menu, const QString& item);
  void PictureWithMenu(QWidget& window, QWidget& opener, const QString& name);
  void SavePicture(const QPixmap& picture, const QString& name);
  void SaveForTheGuide(const QPixmap& picture, const QString& name);

  QString picture_folder_;
  QString picture_prefix_;
  int pictures_ = 0;
  int checks_ = 0;
  std::vector<QString> failures_;
};

/// Handles what is queued, until nothing is left to be done at once.
void Settle();

}  // namespace brovanta::tour
