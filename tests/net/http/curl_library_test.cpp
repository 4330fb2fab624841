#include "net/http/curl_library.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace brovanta {
namespace {

TEST(CurlLibraryTest, IsTheOneThatItsDeclarationsBelongTo) {
  const CurlLibrary* const curl = LoadCurl();
  ASSERT_NE(curl, nullptr);
  CURLU* const url = curl->url();
  ASSERT_NE(url, nullptr);
  EXPECT_EQ(curl->url_set(url, CURLUPART_URL, "http://shop.example:8080/soap", 0), CURLUE_OK);
  char* port = nullptr;
  EXPECT_EQ(curl->url_get(url, CURLUPART_PORT, &port, 0), CURLUE_OK);
  EXPECT_EQ(port == nullptr ? std::string() : std::string(port), "8080");
  curl->free(port);
  curl->url_cleanup(url);
}

TEST(CurlLibraryTest, EveryThreadGetsTheSameOne) {
  std::vector<const CurlLibrary*> found(8);
  {
    std::vector<std::jthread> threads;
    for (const CurlLibrary*& one : found) threads.emplace_back([&one] { one = LoadCurl(); });
  }
  EXPECT_EQ(found, std::vector<const CurlLibrary*>(8, LoadCurl()));
}

TEST(CurlLibraryTest, AMachineWithoutItGivesNone) {
  EXPECT_EQ(LoadCurlFrom("libcurl-of-another-machine.so.4"), nullptr);
  EXPECT_EQ(LoadCurlFrom(""), nullptr);
}

TEST(CurlLibraryTest, ALibraryWithoutItsFunctionsIsNone) {
  EXPECT_EQ(LoadCurlFrom("libm.so.6"), nullptr);
}

}  // namespace
}  // namespace brovanta
