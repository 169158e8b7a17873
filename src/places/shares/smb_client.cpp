// SPDX-License-Identifier: MIT
#include "places/shares/smb_client.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

#include "base/descriptor.h"
#include "places/share_errors.h"
#include "places/share_url.h"

namespace pnl {
namespace {

/// What must hold whatever the machine's or the user's own settings say. No name is asked of the whole network by
/// broadcast, which would take seconds for each name that doesn't exist.
constexpr std::string_view kSettings =
    "[global]\n"
    "name resolve order = host\n"
    "client min protocol = SMB2_02\n"
    "client max protocol = SMB3\n"
    "client ipc min protocol = SMB2_02\n"
    "client ipc max protocol = SMB3\n"
    "client signing = default\n"
    "client ipc signing = default\n"
    "log level = 0\n"
    "unix charset = UTF-8\n";

/// What the library would print goes nowhere: standard output may be the remote control's.
void Swallow(void* /*data*/, int /*level*/, const char* /*text*/) {}

/// Lets the library read the settings from memory. Returns false when it can't.
bool UseSettings(SMBCCTX* context) {
  const Descriptor file(memfd_create("pnl-shares", MFD_CLOEXEC));
  if (!file) return false;
  if (write(file.Get(), kSettings.data(), kSettings.size()) != static_cast<ssize_t>(kSettings.size())) return false;
  const std::string path = "/proc/self/fd/" + std::to_string(file.Get());
  return smbc_setConfiguration(context, path.c_str()) == 0;
}

void Copy(char* field, int size, TextView text) {
  std::string bytes = ToUtf8(text);
  const std::size_t length = std::min(bytes.size(), static_cast<std::size_t>(std::max(size, 1)) - 1);
  std::memcpy(field, bytes.data(), length);
  field[length] = '\0';
  explicit_bzero(bytes.data(), bytes.size());
}

PlaceEntry EntryOf(const libsmb_file_info& info) {
  constexpr std::uint16_t kHidden = 0x02;
  constexpr std::uint16_t kFolder = 0x10;
  PlaceEntry entry;
  entry.name = FromUtf8(info.name);
  entry.folder = (info.attrs & kFolder) != 0;
  entry.hidden = (info.attrs & kHidden) != 0 || entry.name.starts_with(u'.');
  entry.size = entry.folder ? 0 : info.size;
  entry.written = info.mtime_ts.tv_sec;
  return entry;
}

/// An open folder, or the list of a server's shares.
class OpenFolder {
 public:
  OpenFolder(SMBCCTX* context, const std::string& url)
      : context_(context), folder_(smbc_getFunctionOpendir(context)(context, url.c_str())) {}
  ~OpenFolder() {
    if (folder_ != nullptr) smbc_getFunctionClosedir(context_)(context_, folder_);
  }
  OpenFolder(const OpenFolder&) = delete;
  OpenFolder& operator=(const OpenFolder&) = delete;

  explicit operator bool() const { return folder_ != nullptr; }
  [[nodiscard]] const smbc_dirent* Next() { return smbc_getFunctionReaddir(context_)(context_, folder_); }
  [[nodiscard]] const libsmb_file_info* NextFile() { return smbc_getFunctionReaddirPlus(context_)(context_, folder_); }

 private:
  SMBCCTX* context_;
  SMBCFILE* folder_;
};

}  // namespace

std::unique_ptr<SmbClient> SmbClient::Make(int timeOut) {
  SMBCCTX* const context = smbc_new_context();
  if (context == nullptr) return nullptr;
  smbc_setLogCallback(context, nullptr, &Swallow);
  smbc_setDebug(context, 0);
  smbc_setFunctionAuthDataWithContext(context, &SmbClient::Answer);
  smbc_setTimeout(context, timeOut);
  smbc_setOptionUseKerberos(context, 0);
  smbc_setOptionUseCCache(context, 0);
  if (smbc_init_context(context) == nullptr || !UseSettings(context)) {
    smbc_free_context(context, 1);
    return nullptr;
  }
  return std::unique_ptr<SmbClient>(new SmbClient(context));
}

SmbClient::~SmbClient() { smbc_free_context(context_, 1); }

void SmbClient::Answer(SMBCCTX* context, const char* /*server*/, const char* /*share*/, char* domain, int domainSize,
                       char* user, int userSize, char* password, int passwordSize) {
  const auto* self = static_cast<const SmbClient*>(smbc_getOptionUserData(context));
  const Credentials* logon = self != nullptr ? self->logon_.get() : nullptr;
  Copy(user, userSize, logon != nullptr ? TextView(logon->user) : TextView());
  Copy(password, passwordSize, logon != nullptr ? TextView(logon->password) : TextView());
  if (logon != nullptr && !logon->domain.empty()) Copy(domain, domainSize, logon->domain);
}

std::string SmbClient::Enter(const SharePlace& place) {
  logon_ = place.logon;
  smbc_setOptionUserData(context_, this);
  // Open connections are found by the user's name, which would else be that of the account under which this runs.
  // Nobody's must not serve for somebody, nor the other way round.
  smbc_setUser(context_, logon_ != nullptr ? ToUtf8(logon_->user).c_str() : "");
  // A wrong password must not let in as nobody.
  smbc_setOptionNoAutoAnonymousLogin(context_, logon_ != nullptr ? 1 : 0);
  return ShareUrl(place);
}

int SmbClient::Error() const { return ShareErrorOf(errno, logon_ != nullptr); }

ShareNames SmbClient::ListShares(const SharePlace& server) {
  OpenFolder open(context_, Enter(server));
  if (!open) return {Error(), {}};
  ShareNames names{place_error::kNone, {}};
  while (const smbc_dirent* found = open.Next()) {
    const std::string_view name(found->name);
    // Those with a "$" at the end are the administrator's.
    if (found->smbc_type != SMBC_FILE_SHARE || name.empty() || name.back() == '$') continue;
    names.shares.push_back({FromUtf8(name), FromUtf8(found->comment != nullptr ? found->comment : "")});
  }
  return names;
}

ShareListing SmbClient::List(const SharePlace& folder) {
  OpenFolder open(context_, Enter(folder));
  if (!open) return {Error(), {}};
  ShareListing listing{place_error::kNone, {}};
  while (const libsmb_file_info* found = open.NextFile()) {
    const std::string_view name(found->name);
    if (name != "." && name != "..") listing.entries.push_back(EntryOf(*found));
  }
  return listing;
}

ShareFacts SmbClient::Look(const SharePlace& place) {
  const std::string url = Enter(place);
  struct stat info {};
  if (smbc_getFunctionStat(context_)(context_, url.c_str(), &info) != 0) return {Error()};
  return {place_error::kNone, S_ISDIR(info.st_mode), (info.st_mode & S_IWUSR) == 0};
}

int SmbClient::MakeFolder(const SharePlace& folder) {
  const std::string url = Enter(folder);
  constexpr mode_t kMode = 0755;
  return smbc_getFunctionMkdir(context_)(context_, url.c_str(), kMode) == 0 ? place_error::kNone : Error();
}

ShareStart SmbClient::ReadStart(const SharePlace& file, std::size_t most) {
  const std::string url = Enter(file);
  SMBCFILE* const open = smbc_getFunctionOpen(context_)(context_, url.c_str(), O_RDONLY, 0);
  if (open == nullptr) return {Error(), {}};
  ShareStart start{place_error::kNone, std::string(most, '\0')};
  std::size_t size = 0;
  ssize_t got = 1;
  while (size < most && got > 0) {
    got = smbc_getFunctionRead(context_)(context_, open, start.bytes.data() + size, most - size);
    if (got > 0) size += static_cast<std::size_t>(got);
  }
  if (got < 0) start.error = Error();
  start.bytes.resize(got < 0 ? 0 : size);
  static_cast<void>(smbc_getFunctionClose(context_)(context_, open));
  return start;
}

}  // namespace pnl

extern "C" __attribute__((visibility("default"))) pnl::ShareClient* PnlMakeShareClient(int version, int timeOut) {
  return version == pnl::kShareClientVersion ? pnl::SmbClient::Make(timeOut).release() : nullptr;
}
