#include "net/update/update_sequence.h"

#include <new>
#include <optional>
#include <span>
#include <utility>

#include "db/feed_import.h"
#include "db/journal.h"
#include "db/unit_of_work.h"
#include "net/http/http_client.h"
#include "platform/text_file.h"
#include "search/agent_configuration.h"
#include "util/error_codes.h"

namespace brovanta {
namespace {

// One of the two name lists that the server shares.
struct SharedList {
  const char* name;
  NameList& (ShoppingDatabase::*list)();
  std::string DatabasePaths::*path;
  std::string (*request)(const UpdateServer& server, const NameList& held);
};

constexpr SharedList kStores{"stores", &ShoppingDatabase::stores, &DatabasePaths::store,
                             &StoresRequest};
constexpr SharedList kCategories{"categories", &ShoppingDatabase::categories,
                                 &DatabasePaths::category, &CategoriesRequest};

std::int32_t CopyFile(const std::string& from, const std::string& to) {
  std::string bytes;
  if (const int code = platform::ReadWholeFile(from, bytes); code != 0) return code;
  // A restore that ended in the middle has the file in its journal: that is rolled back first.
  const std::string journal = JournalBeside(to);
  if (const int code = RollBackJournal(journal); code != 0) return code;
  UnitOfWork work(journal);
  work.Replace(to, std::as_bytes(std::span(bytes)));
  return work.Commit();
}

class UpdateSequence {
 public:
  UpdateSequence(const UpdateJob& job, UpdateHost& host) : job_(job), host_(host) {}

  std::int32_t Run() {
    std::int32_t code = UpdateAgents();
    if (code == 0) code = UpdateList(kStores);
    if (code == 0) code = UpdateList(kCategories);
    if (code == 0) code = UpdateCoupons();
    return code;
  }

 private:
  std::int32_t UpdateAgents();
  std::int32_t UpdateList(const SharedList& shared);
  std::int32_t UpdateCoupons();

  std::int32_t Download(const std::string& url) const {
    return job_.download(url, job_.scratch_path, host_.cancel_flag());
  }
  // The work's code, or that nobody is there to work for.
  template <typename Work>
  std::int32_t WithDatabase(Work work) {
    std::int32_t code = 0;
    const bool done =
        host_.WithDatabase([&](ShoppingDatabase& database) { code = work(database); });
    return done ? code : kUpdateLeftBehind;
  }
  std::int32_t CheckedConfiguration() const;
  std::int32_t TakeConfiguration();
  std::int32_t BringList(const SharedList& shared);
  std::int32_t BringCoupons();

  void Start(const std::string& what) { host_.Show("Updating " + what + "..."); }
  std::int32_t Finish(const std::string& what) {
    host_.Show("Updating " + what + ": done.");
    host_.FinishStep();
    return 0;
  }
  // The code of the work; the text is shown when that is a failure.
  template <typename Work>
  std::int32_t Try(const std::string& failure, Work work) {
    std::int32_t code = kHttpNoMemory;
    try {
      code = work();
    } catch (const std::bad_alloc&) {
    }
    const bool failed = code != 0 && code != HTTP_ERR_CANCELLED && code != kUpdateLeftBehind;
    if (failed) host_.Show(failure);
    return code;
  }

  const UpdateJob& job_;
  UpdateHost& host_;
};

std::int32_t UpdateSequence::UpdateAgents() {
  Start("search agents");
  std::int32_t code = Try("Failed to download search agents.",
                          [this] { return Download(AgentsRequest(job_.server)); });
  if (code == 0) {
    code = Try("Failed to update search agents.", [this] { return TakeConfiguration(); });
  }
  return code != 0 ? code : Finish("search agents");
}

std::int32_t UpdateSequence::TakeConfiguration() {
  if (const std::int32_t code = CheckedConfiguration(); code != 0) return code;
  return WithDatabase(
      [this](ShoppingDatabase&) { return CopyFile(job_.scratch_path, job_.configuration_path); });
}

std::int32_t UpdateSequence::CheckedConfiguration() const {
  AgentConfiguration scratch;
  const std::int32_t code = LoadAgentConfiguration(job_.scratch_path, scratch);
  if (code != 0) return code;
  return scratch.agents.empty() ? kUpdateFailed : 0;
}

std::int32_t UpdateSequence::UpdateList(const SharedList& shared) {
  Start(shared.name);
  const std::int32_t code =
      Try("Failed to update " + std::string(shared.name) + ".", [&] { return BringList(shared); });
  return code != 0 ? code : Finish(shared.name);
}

std::int32_t UpdateSequence::BringList(const SharedList& shared) {
  std::string url;
  std::int32_t code = WithDatabase([&](ShoppingDatabase& database) {
    NameList& names = (database.*shared.list)();
    // One that does not open fails when it is saved; here it only says what is there already.
    (void)names.EnsureLoaded(database.paths().*shared.path);
    url = shared.request(job_.server, names);
    return 0;
  });
  if (code == 0) code = Download(url);
  if (code != 0) return code;
  return WithDatabase([&](ShoppingDatabase& database) {
    return ImportAndSaveList((database.*shared.list)(), job_.scratch_path,
                             database.paths().*shared.path);
  });
}

std::int32_t UpdateSequence::UpdateCoupons() {
  Start("coupons");
  const std::int32_t code = Try("Failed to update coupons.", [this] { return BringCoupons(); });
  return code != 0 ? code : Finish("coupons");
}

std::int32_t UpdateSequence::BringCoupons() {
  std::optional<std::string> url;
  std::int32_t code = WithDatabase([&](ShoppingDatabase& database) {
    url = CouponsRequest(job_.server, database.discounts().MaxIds());
    return url ? 0 : kUpdateFailed;
  });
  if (code == 0) code = Download(*url);
  if (code != 0) return code;
  return WithDatabase([&](ShoppingDatabase& database) {
    return ImportCoupons(database.discounts(), job_.scratch_path);
  });
}

}  // namespace

std::int32_t UpdateJob::DownloadFromServer(const std::string& url, const std::string& path,
                                           const std::atomic<std::int32_t>& cancel_flag) {
  return DownloadUrlToFile(url, path, 0, cancel_flag);
}

std::int32_t RunUpdate(const UpdateJob& job, UpdateHost& host) {
  return UpdateSequence(job, host).Run();
}

}  // namespace brovanta
