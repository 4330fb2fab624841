// The user's settings: sales tax, country and zip code, kept in the registry.
#pragma once

#include <string>

#include "platform/registry.h"

namespace brovanta {

/// The settings of this run. One object, owned by the application and lent to the screens; the
/// user-interface thread only.
class AppOptions {
 public:
  static constexpr const char* kKeyPath = "Software\\Brovanta\\Options";
  /// UTF-16 units of country and zip code that can be read back: 80 bytes with the terminator.
  static constexpr int kTextLength = 39;

  /// Sets the defaults (tax 0.0, "United States", no zip code) and loads what is stored. The store
  /// is borrowed and must outlive this object.
  AppOptions(const platform::RegistryStore& store, std::string key_path);

  /// Reads "Country", "ZipCode" and "Tax"; a value that is missing or too large leaves its field as
  /// it was, and so does a tax that has not eight bytes or is not finite. 0, or -1 when the key
  /// cannot be opened.
  [[nodiscard]] int load();

  /// Writes the three values, country and zip code cut to what can be read back; the fields keep
  /// what they hold. 0, or -1 when the key can neither be opened nor created; the results of the
  /// single writes are not looked at.
  [[nodiscard]] int save();

  /// Sales tax in percent. A reference to it may be held as long as this object lives.
  [[nodiscard]] const double& tax() const { return tax_; }
  [[nodiscard]] const std::string& country() const { return country_; }    ///< UTF-8
  [[nodiscard]] const std::string& zip_code() const { return zip_code_; }  ///< UTF-8
  void set_tax(double tax) { tax_ = tax; }
  void set_country(std::string country) { country_ = std::move(country); }
  void set_zip_code(std::string zip_code) { zip_code_ = std::move(zip_code); }

 private:
  const platform::RegistryStore& store_;
  std::string key_path_;
  double tax_ = 0.0;
  std::string country_ = "United States";
  std::string zip_code_;
};

}  // namespace brovanta
