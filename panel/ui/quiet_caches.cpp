// SPDX-License-Identifier: MIT
#include "ui/quiet_caches.h"

#include <dlfcn.h>

#include <QPixmapCache>

namespace panel {

void QuietFontCache() {
  // QFontCache::instance() isn't in Qt's public headers, so it is looked up by name and may be missing.
  using Instance = void* (*)();
  if (auto* instance = reinterpret_cast<Instance>(dlsym(RTLD_DEFAULT, "_ZN10QFontCache8instanceEv"))) instance();
}

void QuietPixmapCache() { QPixmapCache::setCacheLimit(0); }

}  // namespace panel
