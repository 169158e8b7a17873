// SPDX-License-Identifier: MIT
// The command line of the panel program, as data. Parsing checks every word before anything starts. It opens no file,
// makes no folder, and doesn't know which language packs and machines there are.
#pragma once

#include <QSize>
#include <QString>
#include <QStringList>
#include <variant>

namespace panel {

struct Options {
  bool help = false;
  bool keys = false;  // print the table of keys and exit
  bool headless = false;
  bool rpc = false;
  bool bare = false;
  bool manualTime = false;
  bool journal = false;       // keep the journal for a script too
  bool settings = false;      // use and keep the panel's settings for a script too
  bool touch = false;         // the screen is touched: the touch keyboard rises for every text field
  bool untilPainted = false;  // exit once the window is painted; for measuring the start
  QString root;               // empty: the user's data folder
  QString machine = QStringLiteral("demo");
  QString language;    // empty: that of the panel's settings, else English
  QSize toolArea;      // empty: 800x600 head-less, else what the screen leaves
  QString guidedInto;  // folder for the captures of the guided session; empty: no guided session
};

/// What is wrong with a command line, in words for the person who typed it.
struct OptionError {
  QString text;
};

/// Parses the arguments, which don't contain the program's name. A later option wins over an earlier one. The first
/// problem found is the error.
[[nodiscard]] std::variant<Options, OptionError> ParseOptions(const QStringList& arguments);
/// The page that --help prints.
[[nodiscard]] QString OptionsHelp();

}  // namespace panel
