// The browser, as the tests see it.
#pragma once

#include <QString>
#include <QStringList>

#include "ui/base/color_button.h"

namespace brovanta::test {

/// Stands in for the browser while it lives: notes the addresses that the program opens and opens
/// nothing. One at a time.
class BrowserStandIn {
 public:
  BrowserStandIn() : before_(SetWebAddressHandler(&Open)) { current_ = this; }
  BrowserStandIn(const BrowserStandIn&) = delete;
  BrowserStandIn& operator=(const BrowserStandIn&) = delete;
  ~BrowserStandIn() {
    SetWebAddressHandler(before_);
    current_ = nullptr;
  }

  /// False: every opening fails from now on, and is noted all the same.
  void set_works(bool works) { works_ = works; }

  /// The addresses so far, in their order.
  [[nodiscard]] const QStringList& addresses() const { return addresses_; }

 private:
  static bool Open(const QString& address) {
    current_->addresses_.append(address);
    return current_->works_;
  }

  static inline BrowserStandIn* current_ = nullptr;
  WebAddressHandler before_;
  QStringList addresses_;
  bool works_ = true;
};

}  // namespace brovanta::test
