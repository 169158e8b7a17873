// SPDX-License-Identifier: MIT
// The command line of the panel program, as data. Parsing checks every word before anything starts; it opens no file,
// makes no folder and knows neither the language packs nor the machines.
#pragma once

#include <QSize>
#include <QString>
#include <QStringList>
#include <variant>

namespace panel {

struct Options {
  bool help = false;
  bool keys = false;  // print the table of keys and leave
  bool headless = false;
  bool rpc = false;
  bool bare = false;
  bool manualTime = false;
  bool untilPainted = false;  // leave once the window was painted, for measuring the start
  QString root;               // empty: the user's data folder
  QString machine = QStringLiteral("demo");
  QString language = QStringLiteral("en");
  QSize toolArea;      // empty: 800x600 head-less, else what the screen leaves
  QString guidedInto;  // folder for the captures of the guided session; empty: none
};

/// What is wrong with a command line, in words for whoever typed it.
struct OptionError {
  QString text;
};

/// arguments without the program's name. Later options win over earlier ones.
[[nodiscard]] std::variant<Options, OptionError> ParseOptions(const QStringList& arguments);
/// The page that --help prints.
[[nodiscard]] QString OptionsHelp();

}  // namespace panel
