// A result's page in the web browser.
#pragma once

#include <QString>

class QWidget;

namespace brovanta {

/// Opens the address, http and https only, since it comes out of a web page. A message over
/// `parent` says so when that fails.
void OpenResultPage(const QString& address, QWidget* parent);

}  // namespace brovanta
