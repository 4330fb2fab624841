#include "tests/tour/guide_pictures.h"

#include <QFileInfo>

#include "tests/tour/demo_server.h"

namespace brovanta::tour {
namespace {

bool NeedsServer(const QString& chapter) {
  return chapter == QStringLiteral("8_update") || chapter == QStringLiteral("9_search");
}

}  // namespace

// scripts/check_documents.py reads this table: the guide names each of them, and no other.
const std::vector<GuidePicture>& GuidePictures() {
  static const std::vector<GuidePicture> pictures{
      {"1_list", "first_start", "first_start"}, {"1_list", "options", "options"},
      {"1_list", "product_weekly", "product"},  {"2_life", "week", "week"},
      {"2_life", "tools_menu", "tools"},        {"2_life", "find", "find"},
      {"2_life", "series", "series"},           {"2_life", "purchases", "purchases"},
      {"2_life", "calendar", "calendar"},       {"3_coupons", "coupon_percent", "coupon"},
      {"3_coupons", "coupons", "coupons"},      {"3_coupons", "slot_menu", "slot_menu"},
      {"3_coupons", "found", "coupons_found"},  {"3_coupons", "apply", "coupon_apply"},
      {"8_update", "running", "update"},        {"8_update", "server_gone", "update_failed"},
      {"9_search", "search_360", "search"},     {"9_search", "searching_360", "searching"},
      {"9_search", "results_360", "results"},   {"9_search", "viewer_360", "result"},
  };
  return pictures;
}

QString GuideFile(const QString& chapter, const QString& picture) {
  for (const GuidePicture& known : GuidePictures()) {
    if (chapter == QLatin1String(known.chapter) && picture == QLatin1String(known.picture)) {
      return QLatin1String(known.file) + QStringLiteral(".png");
    }
  }
  return {};
}

QStringList MissingGuidePictures(const QString& folder) {
  QStringList missing;
  for (const GuidePicture& known : GuidePictures()) {
    if (NeedsServer(QLatin1String(known.chapter)) && !HasDemoServer()) continue;
    const QString file = QLatin1String(known.file) + QStringLiteral(".png");
    if (QFileInfo(folder + QLatin1Char('/') + file).size() == 0) missing << file;
  }
  return missing;
}

}  // namespace brovanta::tour
