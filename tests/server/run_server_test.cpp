#include "server/run_server.h"

#include <gmock/gmock.h>
#include <httplib.h>
#include <signal.h>

#include <filesystem>
#include <system_error>

#include "server/demo_agents.h"
#include "server/demo_world.h"
#include "tests/server/raw_client.h"
#include "tests/server/server_process.h"
#include "tests/support/temp_folder.h"

namespace brovanta::server {
namespace {

using test::ServerProcess;
using testing::HasSubstr;
using testing::StartsWith;

constexpr char kStores[] = "id,name\n1,Corner Shop\n2,Fish Market\n";

class RunServerTest : public testing::Test {
 protected:
  struct Outcome {
    int status;
    std::string output;
    std::string error;
  };

  // Runs the program to its end.
  Outcome Run(std::vector<std::string> arguments) {
    ServerProcess process(arguments, folder_.File("error"));
    std::string output = process.ReadAll();
    const int status = process.Wait();
    return {status, std::move(output), Error()};
  }

  Outcome RunWithData(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"--data", folder_.File("a.db")});
    return Run(std::move(arguments));
  }

  std::unique_ptr<ServerProcess> Serve(std::vector<std::string> more = {}) {
    std::vector<std::string> arguments = {"--data", folder_.File("a.db"), "--listen",
                                          "127.0.0.1:0"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    auto process = std::make_unique<ServerProcess>(arguments, folder_.File("log"));
    address_ = process->WaitForAddress();
    EXPECT_THAT(address_, StartsWith("127.0.0.1:"));
    return process;
  }

  std::string Get(const std::string& target) {
    const auto result = httplib::Client("http://" + address_).Get(target);
    return result ? result->body : "no answer";
  }

  // Of SQLite's write-ahead log beside the database.
  std::uintmax_t SizeOfLog() {
    std::error_code missing;
    const auto size = std::filesystem::file_size(folder_.File("a.db-wal"), missing);
    return missing ? 0 : size;
  }

  std::string Error() { return folder_.ReadText("error").value_or(""); }
  std::string LogText() { return folder_.ReadText("log").value_or(""); }

  test::TempFolder folder_;
  std::string address_;
};

TEST_F(RunServerTest, HelpsAndTellsItsVersion) {
  const Outcome help = Run({"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(help.output, StartsWith("Usage:"));
  EXPECT_EQ(Run({"--version"}).output, "brovanta-server " BROVANTA_VERSION "\n");
}

TEST_F(RunServerTest, SaysWhatIsWrongWithItsCommandLine) {
  const Outcome outcome = Run({"--nonsense"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.output, "");
  EXPECT_THAT(outcome.error, HasSubstr("\"--nonsense\""));
}

TEST_F(RunServerTest, ImportsAndExportsTheSame) {
  folder_.WriteText("s.csv", kStores);
  folder_.WriteText("a.xml", DemoAgentFile());
  const Outcome outcome = RunWithData({"import", "stores", folder_.File("s.csv")});
  EXPECT_EQ(outcome.status, 0) << outcome.error;
  EXPECT_EQ(outcome.output, "imported 2 entries\n");
  EXPECT_EQ(RunWithData({"import", "agents", folder_.File("a.xml")}).status, 0);
  EXPECT_EQ(RunWithData({"export", "stores"}).output, kStores);
  EXPECT_EQ(RunWithData({"export", "agents", folder_.File("b.xml")}).status, 0);
  EXPECT_EQ(folder_.ReadText("b.xml"), DemoAgentFile());
}

TEST_F(RunServerTest, NamesFileAndLineOfEveryFault) {
  folder_.WriteText("s.csv", "id,name\n1,Good\nx,Bad\n3,A<NM>B\n");
  const std::string file = folder_.File("s.csv");
  const Outcome outcome = RunWithData({"import", "stores", file});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.error, "brovanta-server: " + file +
                               ": line 3: id \"x\" is not a whole number from 1 to 4998\n"
                               "brovanta-server: " +
                               file +
                               ": line 4: name holds <NM>, which would end it in the feed\n"
                               "brovanta-server: nothing was imported\n");
  EXPECT_EQ(RunWithData({"export", "stores"}).output, "id,name\n");
}

TEST_F(RunServerTest, SaysWhichFileCannotBeOpened) {
  const std::string missing = folder_.File("missing");
  EXPECT_EQ(RunWithData({"import", "stores", missing}).error,
            "brovanta-server: " + missing + ": No such file or directory\n");
  EXPECT_FALSE(folder_.Read("a.db"));
  const Outcome outcome = RunWithData({"export", "stores"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.error, HasSubstr("a.db: unable to open database file"));
  EXPECT_FALSE(folder_.Read("a.db"));
}

TEST_F(RunServerTest, AnExportThatFindsNoRoomFails) {
  folder_.WriteText("s.csv", kStores);
  ASSERT_EQ(RunWithData({"import", "stores", folder_.File("s.csv")}).status, 0);
  EXPECT_EQ(RunWithData({"export", "stores", "/dev/full/x"}).status, 1);
}

TEST_F(RunServerTest, ServesWhatWasImportedWhileItRuns) {
  const auto server = Serve();
  EXPECT_EQ(Get("/stores.aspx?idx=0&user=x"), "");
  folder_.WriteText("s.csv", kStores);
  ASSERT_EQ(RunWithData({"import", "stores", folder_.File("s.csv")}).status, 0);
  EXPECT_EQ(Get("/stores.aspx?idx=1&user=x"), "<IT><ID>2</ID><NM>Fish Market</NM></IT>\n");
}

TEST_F(RunServerTest, AnswersWithTheRightStatus) {
  const auto server = Serve();
  httplib::Client client("http://" + address_);
  EXPECT_EQ(client.Get("/stores.aspx?idx=x")->status, 400);
  EXPECT_EQ(client.Get("/nothing")->status, 404);
  EXPECT_EQ(client.Post("/stores.aspx?idx=0")->status, 405);
  EXPECT_EQ(client.Get("/coupons/coupon.aspx?srcId=1")->status, 404);
}

TEST_F(RunServerTest, TheDemonstrationFillsAnEmptyDatabaseOnce) {
  {
    const auto server = Serve({"--demo"});
    EXPECT_THAT(Get("/stores.aspx?idx=29&user=x"), StartsWith("<IT><ID>30</ID>"));
    EXPECT_THAT(Get("/webspider.xml"),
                HasSubstr("http://" + address_ + "/demo/millstream/search?"));
    EXPECT_THAT(Get("/demo/golden-acre/search?q=milk"), HasSubstr("Whole Milk"));
  }
  folder_.WriteText("s.csv", "id,name\n30,Renamed\n");
  ASSERT_EQ(RunWithData({"import", "stores", folder_.File("s.csv")}).status, 0);
  const auto server = Serve({"--demo"});
  EXPECT_EQ(Get("/stores.aspx?idx=29&user=x"), "<IT><ID>30</ID><NM>Renamed</NM></IT>\n");
}

TEST_F(RunServerTest, TheDemonstrationIsKeptFresh) {
  std::string error;
  const Day long_ago(std::chrono::year(2020), std::chrono::May, std::chrono::day(1));
  {
    const auto store = Store::Open(folder_.File("a.db"), sqlite::OpenMode::kCreate, error);
    ASSERT_NE(store, nullptr) << error;
    Import world = DemoWorld(long_ago);
    world.agents = "<FormatString>http://{server}/demo/market?words= KEYWORD </FormatString>";
    ASSERT_EQ(store->Apply(world), std::vector<Problem>{});
  }
  const auto server = Serve({"--demo"});
  EXPECT_THAT(Get("/webspider.xml"), HasSubstr("/demo/millstream/search?"));
  EXPECT_THAT(Get("/coupons.aspx?idx=200&edx=100&user=x"),
              StartsWith("<CP><ID>101</ID><SR>2</SR>"));
  EXPECT_THAT(Get("/coupons.aspx?idx=200&edx=0&user=x"), HasSubstr("<CP><ID>201</ID><SR>1</SR>"));
}

TEST_F(RunServerTest, EndsCleanlyOnBothSignals) {
  for (const int signal : {SIGTERM, SIGINT}) {
    const auto server = Serve();
    const test::RawClient idle(address_);
    EXPECT_NE(Get("/stores.aspx?idx=0"), "no answer");
    server->Signal(signal);
    EXPECT_EQ(server->Wait(), 0);
    EXPECT_THAT(LogText(), HasSubstr("GET /stores.aspx?idx=0 200 0\nbrovanta-server: ended\n"));
    EXPECT_FALSE(test::RawClient(address_).connected());
    // Closed properly, the database is one file.
    EXPECT_FALSE(folder_.Read("a.db-wal"));
  }
}

TEST_F(RunServerTest, RefusesAPortThatIsTaken) {
  const auto server = Serve();
  const Outcome outcome = RunWithData({"--listen", address_});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.error,
            "brovanta-server: cannot listen on " + address_ + ": Address already in use\n");
}

TEST_F(RunServerTest, RefusesADatabaseOfAnotherKind) {
  folder_.WriteText("a.db", std::string(2000, 'x'));
  const Outcome outcome = RunWithData({"--listen", "127.0.0.1:0"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.error, HasSubstr("not a database"));
}

TEST_F(RunServerTest, AnImportSurvivesAKilledServer) {
  folder_.WriteText("s.csv", kStores);
  {
    const auto server = Serve();
    ASSERT_EQ(RunWithData({"import", "stores", folder_.File("s.csv")}).status, 0);
    EXPECT_NE(Get("/stores.aspx?idx=0"), "no answer");
    server->Signal(SIGKILL);
    EXPECT_EQ(server->Wait(), -SIGKILL);
  }
  EXPECT_TRUE(folder_.Read("a.db-wal")) << "the import is still in the log beside the database";
  EXPECT_EQ(RunWithData({"export", "stores"}).output, kStores);
}

// A table that SQLite cannot keep in memory: it starts to write long before the import is whole.
std::string LargeTable(char letter) {
  std::string table =
      "source,id,name,product,description,type,value_type,value,start_date,end_date,store_id,"
      "category_id\n";
  for (int id = 1; id <= 12'000; ++id) {
    table += "coupon," + std::to_string(id) + ",Offer,," + std::string(249, letter) +
             ",store coupon,amount,1,,,1,1\n";
  }
  return table;
}

TEST_F(RunServerTest, AnImportKilledWhileItWritesLosesNothing) {
  const std::string old_coupons = LargeTable('o');
  folder_.WriteText("list.csv", "id,name\n1,Corner Shop\n");
  folder_.WriteText("old.csv", old_coupons);
  folder_.WriteText("new.csv", LargeTable('n'));
  for (const char* list : {"stores", "categories"}) {
    ASSERT_EQ(RunWithData({"import", list, folder_.File("list.csv")}).status, 0);
  }
  bool killed = false;
  for (int round = 0; round < 10 && !killed; ++round) {
    ASSERT_EQ(RunWithData({"import", "coupons", folder_.File("old.csv")}).status, 0);
    ServerProcess import(
        {"--data", folder_.File("a.db"), "import", "coupons", folder_.File("new.csv")},
        folder_.File("error"));
    while (!import.Ended() && SizeOfLog() < 500'000) {
    }
    import.Signal(SIGKILL);
    killed = import.Wait() == -SIGKILL;  // else it was quicker than the look at the file
  }
  ASSERT_TRUE(killed);
  EXPECT_GE(SizeOfLog(), 500'000u) << "it had begun to write";
  EXPECT_EQ(RunWithData({"export", "coupons"}).output, old_coupons);
  EXPECT_EQ(RunWithData({"export", "stores"}).output, "id,name\n1,Corner Shop\n");
}

TEST_F(RunServerTest, AKilledImportBringsAllOrNothing) {
  std::string table = "id,name\n";
  for (int id = 1; id <= 4998; ++id) {
    table += std::to_string(id) + "," + std::string(49, 'x') + "\n";
  }
  folder_.WriteText("s.csv", table);
  folder_.WriteText("c.csv", "id,name\n");
  // Killed at some moment between its start and its end, a little later each time.
  for (int round = 0; round < 20; ++round) {
    ServerProcess import(
        {"--data", folder_.File("a.db"), "import", "--replace", "stores", folder_.File("s.csv")},
        folder_.File("error"));
    for (int looks = 0; looks < round * 100 && !import.Ended(); ++looks) {
    }
    import.Signal(SIGKILL);
    static_cast<void>(import.Wait());
    // Makes the database where the import did not get as far as that.
    static_cast<void>(RunWithData({"import", "categories", folder_.File("c.csv")}));
    const std::string stores = RunWithData({"export", "stores"}).output;
    EXPECT_TRUE(stores == table || stores == "id,name\n") << stores.size();
  }
}

}  // namespace
}  // namespace brovanta::server
