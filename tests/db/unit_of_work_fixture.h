// A folder for changes of several files.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "db/unit_of_work.h"
#include "platform/file.h"
#include "tests/support/temp_folder.h"

namespace brovanta::test {

class UnitOfWorkFixture : public testing::Test {
 protected:
  std::string Path(const char* name) const { return folder_.path() + "\\" + name; }

  UnitOfWork::FileIndex Adopt(UnitOfWork& work, const char* name) const {
    platform::File file;
    EXPECT_TRUE(file.Open(Path(name), platform::File::Mode::kReadWrite));
    return work.Adopt(std::move(file), Path(name));
  }

  TempFolder folder_;
};

}  // namespace brovanta::test
