// SPDX-License-Identifier: MIT
#include "places/network_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/temp_folder.h"

namespace pnl {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(NetworkFile, AWholeFileIsRead) {
  const NetworkSetup setup = ParseNetworkFile(
      "; the network of the hall\r\n[PROVIDER Plant]\r\nComment=Machines\r\n"
      "[domain HALL 1]\r\nPROVIDER=plant\r\nComment=Mills\r\n"
      "[Server OFFICE]\r\nDomain=hall 1\r\nAddress=192.168.1.20:1445\r\nComment=Prógrams\r\n"
      "Shares=programs, tool data ,,old\r\n"
      "[SERVER \\\\cam]\r\n");
  NetworkSetup expected;
  expected.providers = {{u"Plant", u"Machines"}, {u"Microsoft Network", u""}};
  expected.domains = {{u"HALL 1", u"plant", u"Mills"}};
  expected.servers = {
      {u"OFFICE", u"plant", u"hall 1", u"Prógrams", "192.168.1.20", 1445, {u"programs", u"tool data", u"old"}},
      {u"cam", u"Microsoft Network", u"", u"", "cam", 0, {}}};
  EXPECT_EQ(setup, expected);
}

TEST(NetworkFile, AnEmptyFileSaysNothing) { EXPECT_EQ(ParseNetworkFile(""), NetworkSetup{}); }

TEST(NetworkFile, WhatIsNamedWithoutASectionIsThereAllTheSame) {
  const NetworkSetup setup = ParseNetworkFile("[SERVER a]\nDomain=D\nProvider=P\n[DOMAIN E]\nProvider=Q\n");
  EXPECT_THAT(setup.providers, ElementsAre(NetworkProvider{u"Q", u""}, NetworkProvider{u"P", u""}));
  EXPECT_THAT(setup.domains, ElementsAre(NetworkDomain{u"E", u"Q", u""}, NetworkDomain{u"D", u"P", u""}));
}

TEST(NetworkFile, AServerIsUnderItsDomainsProvider) {
  const NetworkSetup setup = ParseNetworkFile("[DOMAIN D]\nProvider=P\n[SERVER a]\nDomain=d\nProvider=Other\n");
  EXPECT_EQ(setup.servers.at(0).provider, u"P");
  EXPECT_THAT(setup.providers, ElementsAre(NetworkProvider{u"P", u""}));
}

TEST(NetworkFile, TheFirstOfTwoWithOneNameCounts) {
  const NetworkSetup setup = ParseNetworkFile(
      "[SERVER a]\nComment=1\n[SERVER  A]\nComment=2\n[server a]\nComment=3\n[PROVIDER p]\nComment=1\n"
      "[PROVIDER\tP]\nComment=2\n[DOMAIN d]\nComment=1\n[DOMAIN  D]\nComment=2\n");
  ASSERT_EQ(setup.servers.size(), 1U);
  EXPECT_EQ(setup.servers[0].comment, u"1");
  EXPECT_EQ(setup.providers.at(0), (NetworkProvider{u"p", u"1"}));
  EXPECT_THAT(setup.domains, ElementsAre(NetworkDomain{u"d", u"Microsoft Network", u"1"}));
}

TEST(NetworkFile, TheAddressIsAHostAndAPort) {
  struct Row {
    const char* value;
    const char* host;
    int port;
  };
  // The server's own name when it makes no sense.
  const Row rows[] = {{"10.0.0.1", "10.0.0.1", 0},
                      {"cam-2.hall_1", "cam-2.hall_1", 0},
                      {"h:1", "h", 1},
                      {"h:65535", "h", 65535},
                      {"", "srv", 0},
                      {"h:0", "srv", 0},
                      {"h:65536", "srv", 0},
                      {"h:", "srv", 0},
                      {"h:4x", "srv", 0},
                      {"h: 4", "srv", 0},
                      {"h:+4", "srv", 0},
                      {"h:99999999999", "srv", 0},
                      {":445", "srv", 0},
                      {"a b", "srv", 0},
                      {"user@h", "srv", 0},
                      {"h/x", "srv", 0},
                      {"ñ", "srv", 0},
                      {"smb://h", "srv", 0}};
  for (const Row& row : rows) {
    const NetworkSetup setup = ParseNetworkFile(std::string("[SERVER srv]\nAddress=") + row.value + "\n");
    ASSERT_EQ(setup.servers.size(), 1U) << row.value;
    EXPECT_EQ(setup.servers[0].host, row.host) << row.value;
    EXPECT_EQ(setup.servers[0].port, row.port) << row.value;
  }
}

TEST(NetworkFile, AServerWithoutAWayToItIsLeftOut) {
  EXPECT_THAT(ParseNetworkFile("[SERVER a b]\n").servers, IsEmpty());
  EXPECT_EQ(ParseNetworkFile("[SERVER a b]\nAddress=h\n").servers.size(), 1U);
  EXPECT_FALSE(IsHostName(""));
  EXPECT_TRUE(IsHostName("azAZ09.-_"));
  for (const char* beside : {"@", "[", "`", "{", "/", ":"}) EXPECT_FALSE(IsHostName(beside)) << beside;
  EXPECT_TRUE(IsHostName(std::string(253, 'a')));
  EXPECT_FALSE(IsHostName(std::string(254, 'a')));
}

TEST(NetworkFile, OnlySectionsWithAWordAndANameCount) {
  const NetworkSetup setup = ParseNetworkFile(
      "Address=h\n[SERVER]\nAddress=h\n[SERVERa]\nAddress=h\n[SERVER a\\b]\nAddress=h\n[SERVER a/b]\nAddress=h\n"
      "[SERVER ..]\nAddress=h\n[PROVIDER]\n[DOMAIN ]\n[SHARE x]\n[a SERVER]\n[PROVIDER a\\b]\n[DOMAIN \\\\d]\n");
  EXPECT_EQ(setup, NetworkSetup{});
}

TEST(NetworkFile, AShareThatIsNoNameIsLeftOut) {
  const NetworkSetup setup = ParseNetworkFile("[SERVER a]\nShares=x,a\\b,c/d, ,..,y z\n");
  EXPECT_THAT(setup.servers.at(0).shares, ElementsAre(u"x", u"y z"));
}

TEST(NetworkFile, ProviderAndDomainThatAreNoNamesCountAsAbsent) {
  for (const char* keys : {"Domain=x\\y\nProvider=..\n", "Domain=x]y\nProvider=]\n", "Domain=.\nProvider=a/b\n"}) {
    const NetworkSetup setup = ParseNetworkFile(std::string("[SERVER a]\n") + keys);
    EXPECT_THAT(setup.domains, IsEmpty()) << keys;
    EXPECT_EQ(setup.servers.at(0).provider, kUsualProvider) << keys;
  }
}

TEST(NetworkFile, IsReadFromTheDisc) {
  const test::TempFolder temp;
  temp.Write("network.ini", "[SERVER a]\n");
  const auto setup = ReadNetworkFile((temp.Path() / "network.ini").c_str());
  ASSERT_TRUE(setup);
  EXPECT_EQ(setup->servers.size(), 1U);
}

TEST(NetworkFile, WhatCantBeReadIsNothing) {
  const test::TempFolder temp;
  EXPECT_FALSE(ReadNetworkFile(nullptr));
  EXPECT_FALSE(ReadNetworkFile(""));
  EXPECT_FALSE(ReadNetworkFile((temp.Path() / "none.ini").c_str()));
  EXPECT_FALSE(ReadNetworkFile(temp.Path().c_str()));
  const std::string pipe = (temp.Path() / "pipe").string();
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_FALSE(ReadNetworkFile(pipe.c_str()));
  temp.Write("large.ini", std::string((1u << 20) + 1, ' '));
  EXPECT_FALSE(ReadNetworkFile((temp.Path() / "large.ini").c_str()));
  temp.Write("fits.ini", std::string(1u << 20, ' '));
  EXPECT_TRUE(ReadNetworkFile((temp.Path() / "fits.ini").c_str()));
}

}  // namespace
}  // namespace pnl
