// SPDX-License-Identifier: MIT
// What the operator reads about stored files, on the host's message line.
#include "host/storage_messages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/language_pack.h"
#include "support/fake_places.h"
#include "support/memory_files.h"
#include "support/sim_fixture.h"

namespace pnl::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string>& Shown() {
  static std::vector<std::string> shown;
  return shown;
}

class StorageMessages : public SimFixture {
 protected:
  StorageMessages() {
    Shown().clear();
    table.showMessage = [](int tool, const HostMessage* message) {
      Shown().push_back(std::to_string(tool) + ": " + ToUtf8(FieldText(message->text)));
    };
    LanguagePack pack;
    pack.Parse(BuildPack({{{60001, u"Not saved: %s"}, {60002, u"%s is large"}}, {}, {}, {}}));
    language.Use(std::move(pack));
  }
  MenuTable menus;
  FakePlaces places;
  FakeNetwork network;
  InlineWorker worker;
  Language language{menus, cnc.Util(), files, windows};
  HostApiTable table = {};
  HostBridge host{table, cnc.Vars()};
  ToolContext context{host, cnc, windows, timers, language, files, places, network, worker};
};

TEST_F(StorageMessages, NameTheFilesThatWereNotSavedInTheirOrder) {
  ShowNotSaved(context, 6, {});
  EXPECT_THAT(Shown(), IsEmpty());
  ShowNotSaved(context, 6, {u"MDIMAN.INI"});
  ShowNotSaved(context, 3, {u"b", u"a", u"c"});
  EXPECT_THAT(Shown(), ElementsAre("6: Not saved: MDIMAN.INI", "3: Not saved: b, a, c"));
}

TEST_F(StorageMessages, NameAFileOfMoreThanTenMegabytes) {
  ShowLargeFile(context, 6, u"MDIC1.DAT", 0);
  ShowLargeFile(context, 6, u"MDIC1.DAT", 10'485'760);
  EXPECT_THAT(Shown(), IsEmpty());
  ShowLargeFile(context, 6, u"MDIC1.DAT", 10'485'761);
  EXPECT_THAT(Shown(), ElementsAre("6: MDIC1.DAT is large"));
}

}  // namespace
}  // namespace pnl::test
