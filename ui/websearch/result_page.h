// A result's page in the web browser.
#pragma once

#include <QString>

class QWidget;

namespace brovanta {

/// Opens the address, http, https, ftp and mailto only, since it comes out of a web page. A message
/// over `parent` says so when that fails, and also where there is neither host nor mailbox.
void OpenResultPage(const QString& address, QWidget* parent);

}  // namespace brovanta
