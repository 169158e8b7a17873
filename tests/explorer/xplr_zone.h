// SPDX-License-Identifier: MIT
// Puts the process into a time zone while a test runs.
#pragma once

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace pnl::test {

class ZoneOf {
 public:
  explicit ZoneOf(const char* zone) {
    if (const char* before = std::getenv("TZ")) before_ = before;
    setenv("TZ", zone, 1);
    tzset();
  }
  ~ZoneOf() {
    if (before_) {
      setenv("TZ", before_->c_str(), 1);
    } else {
      unsetenv("TZ");
    }
    tzset();
  }
  ZoneOf(const ZoneOf&) = delete;
  ZoneOf& operator=(const ZoneOf&) = delete;

 private:
  std::optional<std::string> before_;
};

inline constexpr const char* kBerlin = "CET-1CEST,M3.5.0,M10.5.0/3";

/// Zones with and without summer time, on both sides of the world, in parts of an hour too. The named ones are UTC on a
/// machine that doesn't know them.
inline constexpr const char* kZones[] = {
    "UTC0",
    kBerlin,
    "EST5EDT,M3.2.0,M11.1.0",
    "NST3:30NDT,M3.2.0/0:01,M11.1.0/0:01",
    "LHST-10:30LHDT-11,M10.1.0,M4.1.0",
    "<+1245>-12:45<+1345>,M9.5.0/2:45,M4.1.0/3:45",
    "<+14>-14",
    "<-12>12",
    "IST-5:30",
    "Europe/Madrid",
    "Europe/London",
    "Pacific/Apia",
    "Africa/Monrovia",
    "Africa/Casablanca",
    "Asia/Kathmandu",
    "America/Caracas",
};

}  // namespace pnl::test
