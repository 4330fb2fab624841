#include "ui/base/store_names.h"

#include "ui/base/wide_text.h"

namespace brovanta {

QString StoreNames::Of(std::uint32_t id) {
  if (id == 0) return {};
  const auto known = names_.constFind(id);
  if (known != names_.constEnd()) return *known;
  const ListItem* item = stores_.Find(static_cast<std::int32_t>(id));
  QString name = item != nullptr ? WideText(item->Name.view()) : QString();
  names_.insert(id, name);
  return name;
}

}  // namespace brovanta
