// The screens against plain Qt: start-up to the first painted tree, and rebuilding a tree of 10,000
// rows.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QTreeWidget>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "platform/app_options.h"
#include "ui/base/theme.h"
#include "ui/shell/main_dialog.h"

extern char** environ;  // NOLINT: declared by no header

namespace {

using namespace brovanta;  // NOLINT(google-build-using-namespace): one program

constexpr int kRows = 10000;

// A data folder with 10,000 products due today, made once.
const std::string& DataFolder() {
  static const std::string folder = [] {
    std::string pattern =
        (std::filesystem::temp_directory_path() / "brovanta-bench-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) std::abort();
    const auto word = [](std::string& bytes, std::uint32_t value) {
      for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(value >> shift);
    };
    std::string bytes;
    word(bytes, FILE_MAGIC);
    word(bytes, kRows);
    for (int i = 0; i < kRows; ++i) {
      ProductRecord product;
      product.Id = i + 1;
      product.Name.Assign("Product number " + std::to_string(i));
      product.PurchaseKind = static_cast<std::uint16_t>(i % 2 == 0 ? 1 : 2);
      product.DayValue = static_cast<std::uint16_t>(i % 2 == 0 ? 0 : 1 + i % 6);
      product.StartDate = static_cast<DateStamp>(TodayStamp() - (i % 30) * kSecondsPerDay);
      const ProductBytes record = EncodeProduct(product);
      word(bytes, RECORD_MARK);
      bytes.append(reinterpret_cast<const char*>(record.data()), record.size());
    }
    word(bytes, END_MARK);
    std::ofstream(pattern + "/product.dat", std::ios::binary) << bytes;
    const std::string empty_list("\x81\x38\x01\0\x83\x38\x01\0", 8);
    for (const char* list : {"store.lst", "category.lst", "unit.lst"}) {
      std::ofstream(pattern + "/" + list, std::ios::binary) << empty_list;
    }
    return pattern;
  }();
  return folder;
}

// Seconds from the start of a program to its first picture; its end is waited for, but not counted.
double SecondsToFirstPicture(std::vector<std::string> arguments) {
  std::vector<char*> argv;
  for (std::string& argument : arguments) argv.push_back(argument.data());
  argv.push_back(nullptr);
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) std::abort();
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  pid_t child = 0;
  const auto begin = std::chrono::steady_clock::now();
  if (posix_spawn(&child, argv[0], &actions, nullptr, argv.data(), environ) != 0) std::abort();
  close(ends[1]);
  char painted = 0;
  if (read(ends[0], &painted, 1) != 1) std::abort();
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
  int status = 0;
  waitpid(child, &status, 0);
  if (status != 0) std::abort();
  close(ends[0]);
  posix_spawn_file_actions_destroy(&actions);
  return taken.count();
}

void StartupEmptyDialog(benchmark::State& state) {
  for (auto unused : state) state.SetIterationTime(SecondsToFirstPicture({BROVANTA_EMPTY_DIALOG}));
}
BENCHMARK(StartupEmptyDialog)
    ->Name("startup/empty_dialog")
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();

void StartupMainScreen(benchmark::State& state) {
  const std::string folder = DataFolder();
  for (auto unused : state) {
    state.SetIterationTime(
        SecondsToFirstPicture({BROVANTA_STARTUP_PROBE, "--data-folder", folder}));
  }
}
BENCHMARK(StartupMainScreen)
    ->Name("startup/brovanta")
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();

// As many items, under as many headings, in the plainest way the toolkit offers.
void TreePlain(benchmark::State& state) {
  QTreeWidget tree;
  tree.resize(360, 480);
  tree.show();
  const QString text(46, QLatin1Char(' '));
  for (auto unused : state) {
    tree.clear();
    QTreeWidgetItem* heading = nullptr;
    for (int i = 0; i < kRows; ++i) {
      if (i % (kRows / 30) == 0) {
        heading = new QTreeWidgetItem(&tree, {QStringLiteral("Saturday 11/21/2026")});
      }
      new QTreeWidgetItem(heading, {text});
    }
    tree.expandAll();
    QApplication::processEvents();
  }
}
BENCHMARK(TreePlain)->Name("tree/plain")->Unit(benchmark::kMillisecond);

// The main screen's own rebuild, the reading of the file included.
void TreeMainScreen(benchmark::State& state) {
  const std::string folder = DataFolder();
  platform::RegistryStore store(folder + "/registry.reg");
  AppOptions options(store, AppOptions::kKeyPath);
  MainDialog main_dialog(options, std::make_unique<ShoppingDatabase>(),
                         std::make_unique<SearchManager>(), folder);
  main_dialog.show();
  for (auto unused : state) {
    benchmark::DoNotOptimize(main_dialog.RefreshList(true));
    QApplication::processEvents();
  }
}
BENCHMARK(TreeMainScreen)->Name("tree/brovanta")->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  const bool no_display =
      qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
  if (no_display && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  benchmark::Initialize(&argc, argv);
  QApplication application(argc, argv);
  ApplyTheme(application);
  benchmark::RunSpecifiedBenchmarks();
  std::error_code ignored;
  std::filesystem::remove_all(DataFolder(), ignored);
  return 0;
}
