// SPDX-License-Identifier: MIT
#include "options.h"

#include <QRegularExpression>
#include <optional>
#include <vector>

namespace panel {
namespace {

constexpr int kMinSide = 100;
constexpr int kMaxSide = 8000;

/// Stores a value in the options. Returns what is wrong with the value, or an empty text.
using TakeValue = QString (*)(Options&, const QString& value);

struct OptionRow {
  const char* name;
  const char* value;  // name of the value in the help; empty: the option takes no value
  const char* help;
  TakeValue take;
};

QString TakeSize(Options& options, const QString& value) {
  static const QRegularExpression form(QStringLiteral("^([0-9]{1,6})x([0-9]{1,6})$"));
  const auto match = form.match(value);
  if (!match.hasMatch()) return QStringLiteral("must be WIDTHxHEIGHT, as in 800x600");
  const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
  if (size.width() < kMinSide || size.height() < kMinSide || size.width() > kMaxSide || size.height() > kMaxSide) {
    return QStringLiteral("each side must be from %1 to %2").arg(kMinSide).arg(kMaxSide);
  }
  options.toolArea = size;
  return {};
}

QString TakeTime(Options& options, const QString& value) {
  if (value != QLatin1String("real") && value != QLatin1String("manual"))
    return QStringLiteral("must be real or manual");
  options.manualTime = value == QLatin1String("manual");
  return {};
}

QString TakeLanguage(Options& options, const QString& value) {
  static const QRegularExpression form(QStringLiteral("^[a-z]{2,8}$"));
  if (!form.match(value).hasMatch()) return QStringLiteral("must be a language code such as en or es, or none");
  options.language = value;
  return {};
}

template <QString Options::*field>
QString TakeText(Options& options, const QString& value) {
  if (value.isEmpty()) return QStringLiteral("must not be empty");
  options.*field = value;
  return {};
}

template <bool Options::*field>
QString TakeFlag(Options& options, const QString& value) {
  (void)value;
  options.*field = true;
  return {};
}

const std::vector<OptionRow>& Rows() {
  static const std::vector<OptionRow> rows = {
      {"--headless", "", "no display needed; windows are drawn off screen", &TakeFlag<&Options::headless>},
      {"--rpc", "", "take requests from standard input, one JSON object a line", &TakeFlag<&Options::rpc>},
      {"--root", "DIR", "the folder behind drive C:", &TakeText<&Options::root>},
      {"--bare", "", "no machine: calls are recorded, nothing reacts", &TakeFlag<&Options::bare>},
      {"--machine", "NAME", "demo (default), demo-dual (turns too) or demo-inch", &TakeText<&Options::machine>},
      {"--lang", "CODE", "en, es, or none for text numbers (default: as set in the panel, else en)", &TakeLanguage},
      {"--time", "real|manual", "manual: timers and machine move only when told", &TakeTime},
      {"--journal", "", "keep unsaved work for the next start, for a script too", &TakeFlag<&Options::journal>},
      {"--settings", "", "use and keep the panel's settings, for a script too", &TakeFlag<&Options::settings>},
      {"--size", "WIDTHxHEIGHT", "the tool area (default 800x600 head-less)", &TakeSize},
      {"--touch", "", "the screen is touched: a keyboard rises for text fields", &TakeFlag<&Options::touch>},
      {"--guided", "DIR", "run a guided session, leave its captures in DIR", &TakeText<&Options::guidedInto>},
      {"--until-painted", "", "leave once the window is painted", &TakeFlag<&Options::untilPainted>},
      {"--keys", "", "print the table of keys and leave", &TakeFlag<&Options::keys>},
      {"--help", "", "print this page and leave", &TakeFlag<&Options::help>},
  };
  return rows;
}

const OptionRow* Find(const QString& name) {
  for (const auto& row : Rows()) {
    if (name == QLatin1String(row.name)) return &row;
  }
  return nullptr;
}

/// Names two options that contradict each other. Empty when there are none.
QString Contradiction(const Options& options) {
  if (options.rpc && !options.guidedInto.isEmpty()) return QStringLiteral("--rpc and --guided exclude each other");
  if (options.bare && !options.guidedInto.isEmpty()) return QStringLiteral("--guided needs a machine, --bare has none");
  return {};
}

}  // namespace

std::variant<Options, OptionError> ParseOptions(const QStringList& arguments) {
  Options options;
  for (qsizetype i = 0; i < arguments.size(); ++i) {
    const auto equals = arguments[i].indexOf(QLatin1Char('='));
    const bool joined = arguments[i].startsWith(QLatin1String("--")) && equals > 0;
    const QString name = joined ? arguments[i].left(equals) : arguments[i];
    const OptionRow* row = Find(name);
    if (row == nullptr) return OptionError{QStringLiteral("unknown option: %1").arg(arguments[i])};
    QString value;
    if (row->value[0] == '\0') {
      if (joined) return OptionError{QStringLiteral("%1 takes no value").arg(name)};
    } else if (joined) {
      value = arguments[i].mid(equals + 1);
    } else {
      // The next option isn't a value: in "--root --rpc" the folder was forgotten; it isn't named "--rpc".
      if (i + 1 >= arguments.size() || arguments[i + 1].startsWith(QLatin1String("--"))) {
        return OptionError{QStringLiteral("%1 needs a value: %2").arg(name, QLatin1String(row->value))};
      }
      value = arguments[++i];
    }
    const QString problem = row->take(options, value);
    if (!problem.isEmpty()) return OptionError{QStringLiteral("%1 %2: %3").arg(name, value, problem)};
  }
  const QString problem = Contradiction(options);
  if (!problem.isEmpty()) return OptionError{problem};
  return options;
}

QString OptionsHelp() {
  QString page = QStringLiteral("pnlpanel: the panel program of the tool library\n\n");
  for (const auto& row : Rows()) {
    const QString left = QStringLiteral("%1 %2").arg(QLatin1String(row.name), QLatin1String(row.value));
    page += QStringLiteral("  %1 %2\n").arg(left, -24).arg(QLatin1String(row.help));
  }
  return page;
}

}  // namespace panel
