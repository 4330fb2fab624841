// The server's imports and exports, struck at every system call on their files. SQLite asks through
// the same calls as we do, the syncing aside.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include "platform/system_calls.h"
#include "server/import_file.h"
#include "tests/faults/strikes.h"

namespace brovanta::server {
namespace {

using platform::Calls;
using test::Scenario;
using test::Striker;
using test::TempFolder;

constexpr int kLeastPoints = 150;

constexpr char kColumns[] =
    "source,id,name,product,description,type,value_type,value,start_date,end_date,store_id,"
    "category_id\n";
constexpr char kOld[] = "coupon,1,Old,Milk,,mail in rebate,amount,1.50,,2025-12-31,1,1\n";
constexpr char kNew[] = "deal,1,Half price,,Today,store coupon,percent,50,2025-01-01,,1,1\n";

int OpenFile(const char* path, int flags, int mode) {
  return Calls().Open(path, flags, static_cast<mode_t>(mode));
}
int CloseFile(int file) { return Calls().Close(file); }
ssize_t ReadFile(int file, void* to, std::size_t size) { return Calls().Read(file, to, size); }
ssize_t ReadFileAt(int file, void* to, std::size_t size, off_t offset) {
  return Calls().ReadAt(file, to, size, offset);
}
ssize_t WriteFileAt(int file, const void* from, std::size_t size, off_t offset) {
  return Calls().WriteAt(file, from, size, offset);
}
ssize_t WriteFile(int file, const void* from, std::size_t size) {
  const off_t at = lseek(file, 0, SEEK_CUR);
  const ssize_t count = Calls().WriteAt(file, from, size, at);
  if (count > 0) (void)lseek(file, at + count, SEEK_SET);
  return count;
}
int CutFile(int file, off_t size) { return Calls().Truncate(file, size); }
int RemoveFile(const char* path) { return Calls().Remove(path); }
int StatusOfFile(int file, struct stat* status) { return Calls().StatusOf(file, status); }
int StatusOfPath(const char* path, struct stat* status) { return Calls().Status(path, status); }

/// While it lives, SQLite's file layer is ours.
class SqliteThroughOurCalls {
 public:
  SqliteThroughOurCalls() {
    Put("open", reinterpret_cast<sqlite3_syscall_ptr>(OpenFile));
    Put("close", reinterpret_cast<sqlite3_syscall_ptr>(CloseFile));
    Put("read", reinterpret_cast<sqlite3_syscall_ptr>(ReadFile));
    Put("pread", reinterpret_cast<sqlite3_syscall_ptr>(ReadFileAt));
    Put("pread64", reinterpret_cast<sqlite3_syscall_ptr>(ReadFileAt));
    Put("write", reinterpret_cast<sqlite3_syscall_ptr>(WriteFile));
    Put("pwrite", reinterpret_cast<sqlite3_syscall_ptr>(WriteFileAt));
    Put("pwrite64", reinterpret_cast<sqlite3_syscall_ptr>(WriteFileAt));
    Put("ftruncate", reinterpret_cast<sqlite3_syscall_ptr>(CutFile));
    Put("unlink", reinterpret_cast<sqlite3_syscall_ptr>(RemoveFile));
    Put("fstat", reinterpret_cast<sqlite3_syscall_ptr>(StatusOfFile));
    Put("stat", reinterpret_cast<sqlite3_syscall_ptr>(StatusOfPath));
  }
  SqliteThroughOurCalls(const SqliteThroughOurCalls&) = delete;
  SqliteThroughOurCalls& operator=(const SqliteThroughOurCalls&) = delete;
  ~SqliteThroughOurCalls() { files_->xSetSystemCall(files_, nullptr, nullptr); }

 private:
  void Put(const char* name, sqlite3_syscall_ptr call) {
    EXPECT_EQ(files_->xSetSystemCall(files_, name, call), SQLITE_OK) << name;
  }
  sqlite3_vfs* const files_ = (sqlite3_initialize(), sqlite3_vfs_find(nullptr));
};

std::unique_ptr<Store> OpenStore(const std::string& folder) {
  std::string error;
  return Store::Open(folder + "/a.db", sqlite::OpenMode::kCreate, error);
}

bool Import(const std::string& folder, Subject subject, const std::string& text) {
  const auto store = OpenStore(folder);
  return store != nullptr && ImportText(*store, subject, text, false).problems.empty();
}

/// One coupon, and what it refers to.
void PrepareStore(const TempFolder& folder) {
  ASSERT_TRUE(Import(folder.path(), Subject::kStores, "id,name\n1,Corner Shop\n"));
  ASSERT_TRUE(Import(folder.path(), Subject::kCategories, "id,name\n1,Food\n"));
  ASSERT_TRUE(Import(folder.path(), Subject::kCoupons, std::string(kColumns) + kOld));
}

TEST(ServerFaultsTest, AnImportComesInWholeOrNotAtAll) {
  const SqliteThroughOurCalls through_our_calls;
  Scenario scenario{"server import",
                    PrepareStore,
                    [](const std::string& folder) {
                      return Import(folder, Subject::kCoupons, std::string(kColumns) + kNew);
                    },
                    {}};
  scenario.judge = [](const std::string& folder, bool succeeded) -> std::string {
    std::string error;
    const auto store = OpenStore(folder);
    if (store == nullptr) return "the database does not open any more";
    const auto text = ExportText(*store, Subject::kCoupons, error);
    if (!text) return error;
    if (*text == std::string(kColumns) + kOld + kNew) return "";
    if (*text != std::string(kColumns) + kOld) return "neither old nor new: " + *text;
    return succeeded ? "confirmed, but not there" : "";
  };
  const TempFolder folder;
  EXPECT_GE(Striker(scenario, folder).Strike(test::Strikes::kCalls), kLeastPoints);
}

TEST(ServerFaultsTest, AnExportReplacesTheFileWholeOrNotAtAll) {
  const auto run = [](const std::string& folder) {
    std::string error;
    return WriteWholeFile(folder + "/stores.csv", "id,name\n1,Corner Shop\n", error);
  };
  const auto prepare = [](const TempFolder& folder) {
    folder.WriteText("stores.csv", "id,name\n");
  };
  Scenario scenario{"server export", prepare, run, {{"stores.csv"}}};
  scenario.may_stand_unconfirmed = true;
  const TempFolder folder;
  EXPECT_GE(Striker(scenario, folder).Strike(), 80);
}

}  // namespace
}  // namespace brovanta::server
