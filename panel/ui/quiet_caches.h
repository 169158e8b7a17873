// SPDX-License-Identifier: MIT
// Turns off the timers with which Qt's caches drop unused entries, because each tick wakes the idle panel. The panel
// uses a few dozen fonts as long as it runs and keeps its own pictures, so it doesn't need that cleaning.
#pragma once

namespace panel {

/// Keeps the font cache from starting its timer. Call it before the application is made: a cache that is made earlier
/// uses no timer. Does nothing when Qt doesn't export the cache.
void QuietFontCache();

/// Keeps the pixmap cache from starting its timer, by setting its limit to 0. Call it after the application is made.
void QuietPixmapCache();

}  // namespace panel
