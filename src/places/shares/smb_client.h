// SPDX-License-Identifier: MIT
// The client of shares over libsmbclient, which must be used on one thread only, prints nothing here, asks nobody and
// follows no settings of the user. The module's own source: nothing else includes it.
#pragma once

#include <libsmbclient.h>

#include <memory>

#include "places/share_client.h"

namespace pnl {

class SmbClient final : public ShareClient {
 public:
  /// timeOut is in milliseconds. Returns null when the library can't start.
  [[nodiscard]] static std::unique_ptr<SmbClient> Make(int timeOut);
  ~SmbClient() override;
  SmbClient(const SmbClient&) = delete;
  SmbClient& operator=(const SmbClient&) = delete;

  ShareNames ListShares(const SharePlace& server) override;
  ShareListing List(const SharePlace& folder) override;
  ShareFacts Look(const SharePlace& place) override;
  int MakeFolder(const SharePlace& folder) override;
  ShareStart ReadStart(const SharePlace& file, std::size_t most) override;

 private:
  explicit SmbClient(SMBCCTX* context) : context_(context) {}
  /// Logs on with the place's credentials in the calls that follow. Returns its address.
  [[nodiscard]] std::string Enter(const SharePlace& place);
  /// The place_error of errno, for the place that was entered.
  [[nodiscard]] int Error() const;
  static void Answer(SMBCCTX* context, const char* server, const char* share, char* domain, int domainSize, char* user,
                     int userSize, char* password, int passwordSize);

  SMBCCTX* context_;
  SharedCredentials logon_;
};

}  // namespace pnl
