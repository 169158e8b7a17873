// SPDX-License-Identifier: MIT
// Qt's caches throw away by timers what nobody used for a while, and each tick wakes the resting panel. The panel uses
// a few dozen fonts for as long as it runs, and keeps its own pictures; it does without that cleaning.
#pragma once

namespace panel {

/// Keeps the font cache from starting its timer. Call it before the application is made: a cache that is made first
/// takes itself for one of a thread without timers. Does nothing where Qt doesn't let itself be asked.
void QuietFontCache();

/// Keeps the pixmap cache from starting its timer, by leaving nothing in it. Call it when the application is made.
void QuietPixmapCache();

}  // namespace panel
