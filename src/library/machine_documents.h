// SPDX-License-Identifier: MIT
// The manuals and the PLC's documents of a simulated machine: which folders of its drive have them in each language,
// and how they get there from the files that come with the library. A machine builder's backend has its own; this is
// only for the simulation.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/files.h"
#include "base/text.h"
#include "facade/sim/simulated_cnc.h"

namespace pnl {

/// The languages in which a simulated machine has manuals and documents.
inline constexpr const char* kDocumentLanguages[] = {"en", "es"};

/// The folder of the manuals in a language, whether there are any or not.
[[nodiscard]] Text ManualFolder(std::string_view language);

/// The folder of the PLC's documents: the Spanish one for a code that begins with "es", the English one for any other,
/// like the machine's messages.
[[nodiscard]] Text PlcFolder(std::string_view language);

/// Points the ids of the language's folders, which are 61 and 113, to those of that language.
void UseLanguageFolders(rig::Storage& storage, std::string_view language);

/// Puts manuals and documents in every language onto the machine's drive, and the texts by number of the documents into
/// the tables of the simulated CNC. Writes only files that differ. Returns false when one couldn't be written.
[[nodiscard]] bool InstallDocuments(Files& files, const std::vector<std::string>& packFolders, sim::SimulatedCnc& cnc);

}  // namespace pnl
