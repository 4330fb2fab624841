// Fields that the mouse wheel passes by on its way through a form.
#pragma once

class QWidget;

namespace brovanta {

/// From now on the lists and the date and number fields of the form take the wheel only while they
/// have the focus, and the wheel gives it to none of them: else scrolling a form would change what
/// it holds. For the others the form scrolls. Fields added later are not covered.
void KeepFromTheWheel(QWidget& form);

}  // namespace brovanta
