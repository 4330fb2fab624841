#include "tests/tour/stage.h"

#include <QTest>
#include <QTimer>
#include <utility>

#include "tests/support/fixed_clock.h"

namespace brovanta::tour {

Stage::Stage(std::string folder) : folder_(std::move(folder)) {}

void Stage::Run(std::int64_t now, QSize size, const std::function<void(MainDialog&)>& act) {
  const test::FixedClock clock(now);
  const platform::RegistryStore store(folder_ + "/registry.reg");
  AppOptions options(store, AppOptions::kKeyPath);
  MainDialog main(options, std::make_unique<ShoppingDatabase>(), std::make_unique<SearchManager>(),
                  folder_);
  QTimer::singleShot(0, &main, [&] {
    main.resize(size);
    Settle();
    act(main);
    main.close();
  });
  main.exec();
}

}  // namespace brovanta::tour
