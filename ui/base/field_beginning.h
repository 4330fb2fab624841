// Text fields that show where a long text begins once they are left.
#pragma once

class QWidget;

namespace brovanta {

/// From now on the lines of the form in which one types, those of lists included, show the
/// beginning of a text that is too long for them when the focus leaves: else such a field would
/// show the end of what was chosen or typed last. What stands in them stays, and so does the cursor
/// for one who is sent back to a field by the program. Fields added later are not covered.
void ShowBeginningsOfLeftFields(QWidget& form);

}  // namespace brovanta
