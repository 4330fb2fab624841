#include "ui/base/color_button_accessible.h"

#include <QAccessibleWidget>
#include <QTextDocumentFragment>

#include "ui/base/color_button.h"

namespace brovanta {
namespace {

class ColorButtonAccessible : public QAccessibleWidget {
 public:
  explicit ColorButtonAccessible(ColorButton* button) : QAccessibleWidget(button) {}

  [[nodiscard]] QAccessible::Role role() const override {
    if (button().isCheckable()) return QAccessible::CheckBox;
    return button().menu() != nullptr ? QAccessible::ButtonMenu : QAccessible::Button;
  }

  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = button().isCheckable();
    state.checked = button().isChecked();
    state.pressed = button().isDown();
    state.hasPopup = !button().isCheckable() && button().menu() != nullptr;
    state.expanded = button().menu_showing();
    return state;
  }

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Description) return Description();
    if (kind != QAccessible::Name || !button().accessibleName().isEmpty()) {
      return QAccessibleWidget::text(kind);
    }
    return button().text().isEmpty() ? PlainToolTip() : button().text();
  }

  [[nodiscard]] QStringList actionNames() const override {
    return QStringList(OwnAction()) + QAccessibleWidget::actionNames();
  }

  void doAction(const QString& action) override {
    if (action != OwnAction()) return QAccessibleWidget::doAction(action);
    // Queued: what the button opens would keep the screen reader waiting for its answer.
    QMetaObject::invokeMethod(&button(), &ColorButton::click, Qt::QueuedConnection);
  }

 private:
  [[nodiscard]] ColorButton& button() const { return *static_cast<ColorButton*>(object()); }

  [[nodiscard]] QString OwnAction() const {
    if (button().isCheckable()) return toggleAction();
    return button().menu() != nullptr ? showMenuAction() : pressAction();
  }

  [[nodiscard]] QString Description() const {
    const QString own = button().accessibleDescription();
    return own.isEmpty() ? PlainToolTip() : own;
  }

  /// Markup is for tips only.
  [[nodiscard]] QString PlainToolTip() const {
    const QString tip = button().toolTip();
    return Qt::mightBeRichText(tip) ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip;
  }
};

QAccessibleInterface* MakeAccessible(const QString& /*class_name*/, QObject* object) {
  auto* const button = qobject_cast<ColorButton*>(object);
  return button == nullptr ? nullptr : new ColorButtonAccessible(button);
}

}  // namespace

void SpeakForColorButtons() {
  // The toolkit takes a factory that it has already once only.
  QAccessible::installFactory(&MakeAccessible);
}

}  // namespace brovanta
