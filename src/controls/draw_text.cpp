// SPDX-License-Identifier: MIT
#include "controls/draw_text.h"

#include <QtCore/QStringList>
#include <QtGui/QPainter>
#include <algorithm>

#include "controls/fonts.h"

namespace pnl {
namespace {

constexpr int kTabCharacters = 8;

/// More than any screen shows. The rest would only cost time to measure.
constexpr qsizetype kLongestText = 8192;
constexpr qsizetype kMostLines = 500;

/// A text ready to be drawn: lines without line ends and prefix marks.
struct Lines {
  QStringList lines;
  int marked = -1;  // index in the first line of the character that is underlined; -1 for none
  bool shortened = false;
};

int LineHeight(const QFontMetrics& metrics, std::uint32_t flags) {
  return CellHeight(metrics) + ((flags & draw::kExternalLeading) != 0 ? std::max(0, metrics.leading()) : 0);
}

int NextTab(const QFontMetrics& metrics, int x) {
  const int stop = std::max(1, kTabCharacters * metrics.averageCharWidth());
  return (x / stop + 1) * stop;
}

int LineWidth(const QFontMetrics& metrics, const QString& line, std::uint32_t flags) {
  if ((flags & draw::kExpandTabs) == 0 || !line.contains(u'\t')) return metrics.horizontalAdvance(line);
  int x = 0;
  const QStringList parts = line.split(u'\t');
  for (int i = 0; i < parts.size(); ++i) x = (i == 0 ? 0 : NextTab(metrics, x)) + metrics.horizontalAdvance(parts[i]);
  return x;
}

/// Removes the prefix marks. "&&" becomes '&'; a single '&' marks the character after it.
QString WithoutPrefixes(const QString& text, int& marked) {
  QString plain;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] == u'&' && i + 1 < text.size()) {
      if (text[++i] != u'&' && marked < 0) marked = static_cast<int>(plain.size());
    } else if (text[i] == u'&') {
      continue;
    }
    plain += text[i];
  }
  return plain;
}

QString EndShortened(const QFontMetrics& metrics, const QString& line, int width) {
  return metrics.elidedText(line, Qt::ElideRight, std::max(0, width));
}

/// How many characters of the text fit in the width, but at least fewest.
qsizetype Fitting(const QFontMetrics& metrics, const QString& text, int width, qsizetype fewest) {
  qsizetype low = std::min(fewest, text.size());
  qsizetype high = text.size();
  while (low < high) {
    const qsizetype middle = (low + high + 1) / 2;
    if (metrics.horizontalAdvance(text.left(middle)) <= width) {
      low = middle;
    } else {
      high = middle - 1;
    }
  }
  return low;
}

/// Turns "C:\folder\name" into "C:\fol…\name". If not even the last part fits, that part is cut at its end.
QString PathShortened(const QFontMetrics& metrics, const QString& line, int width) {
  const auto cut = line.lastIndexOf(u'\\');
  if (cut < 0) return EndShortened(metrics, line, width);
  const QString tail = QChar(0x2026) + line.mid(cut);
  const int room = width - metrics.horizontalAdvance(tail);
  if (room < 0) return EndShortened(metrics, tail, width);
  const QString head = line.left(cut);
  return head.left(Fitting(metrics, head, room, 0)) + tail;
}

/// Breaks a paragraph between words; a word longer than the line stays whole unless kEditControl breaks it.
void Wrap(const QFontMetrics& metrics, const QString& paragraph, int width, std::uint32_t flags, QStringList& lines) {
  QString rest = paragraph;
  // A line has at most as many characters as pixels, so the text after that needn't be measured for every line.
  const qsizetype most = std::max(width, 1) + 1;
  while (lines.size() < kMostLines && LineWidth(metrics, rest.left(most), flags) > width) {
    const qsizetype fit = Fitting(metrics, rest.left(most), width, 1);
    qsizetype cut = rest.lastIndexOf(u' ', fit);
    if (cut <= 0 && (flags & draw::kEditControl) != 0) {
      lines << rest.left(fit);
      rest = rest.mid(fit);
      continue;
    }
    if (cut <= 0) cut = rest.indexOf(u' ', fit);
    if (cut <= 0) break;
    lines << rest.left(cut);
    rest = rest.mid(cut + 1);
  }
  lines << rest;
}

Lines BreakText(const QFontMetrics& metrics, int width, const QString& text, std::uint32_t flags) {
  Lines result;
  QString plain = text.left(kLongestText);
  if ((flags & draw::kNoPrefix) == 0) plain = WithoutPrefixes(plain, result.marked);
  if ((flags & draw::kExpandTabs) == 0) plain.replace(u'\t', u' ');
  plain.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
  if ((flags & draw::kSingleLine) != 0) {
    result.lines << plain.replace(u'\n', u' ');
    return result;
  }
  for (const QString& paragraph : plain.split(u'\n')) {
    if ((flags & draw::kWordBreak) != 0) {
      Wrap(metrics, paragraph, width, flags, result.lines);
    } else {
      result.lines << paragraph;
    }
  }
  return result;
}

/// Shortens lines that are too wide. With kEndEllipsis it also drops lines that are too many.
void Shorten(const QFontMetrics& metrics, QSize size, std::uint32_t flags, Lines& text) {
  if ((flags & (draw::kEndEllipsis | draw::kPathEllipsis)) == 0) return;
  if ((flags & draw::kSingleLine) == 0 && (flags & draw::kEndEllipsis) != 0) {
    const qsizetype room = std::max(1, size.height() / std::max(1, LineHeight(metrics, flags)));
    if (text.lines.size() > room) {
      const QString rest = text.lines.mid(room - 1).join(u' ');
      text.lines = text.lines.mid(0, room);
      // The blanks make the rest longer than the line in any case, so that even a short rest gets an ellipsis.
      text.lines.last() = EndShortened(metrics, rest + QString(size.width(), u' '), size.width()).trimmed();
      text.shortened = true;
    }
  }
  for (QString& line : text.lines) {
    if (LineWidth(metrics, line, flags) <= size.width()) continue;
    line = (flags & draw::kPathEllipsis) != 0 ? PathShortened(metrics, line, size.width())
                                              : EndShortened(metrics, line, size.width());
    text.shortened = true;
  }
}

QSize SizeOf(const QFontMetrics& metrics, const Lines& text, std::uint32_t flags) {
  int width = 0;
  for (const QString& line : text.lines) width = std::max(width, LineWidth(metrics, line, flags));
  const int height = (flags & draw::kSingleLine) != 0 ? CellHeight(metrics) : LineHeight(metrics, flags);
  return {width, height * static_cast<int>(text.lines.size())};
}

void DrawLine(QPainter& painter, int x, int baseline, const QString& line, std::uint32_t flags, int marked) {
  const QFontMetrics metrics = painter.fontMetrics();
  if ((flags & draw::kExpandTabs) == 0 || !line.contains(u'\t')) {
    painter.drawText(x, baseline, line);
  } else {
    const QStringList parts = line.split(u'\t');
    int at = 0;
    for (int i = 0; i < parts.size(); ++i) {
      if (i != 0) at = NextTab(metrics, at);
      painter.drawText(x + at, baseline, parts[i]);
      at += metrics.horizontalAdvance(parts[i]);
    }
  }
  if (marked < 0 || marked >= line.size()) return;
  const int from = x + metrics.horizontalAdvance(line.left(marked));
  painter.drawLine(from, baseline + 1, from + metrics.horizontalAdvance(line[marked]) - 1, baseline + 1);
}

int LeftOf(const QRect& rect, int width, std::uint32_t flags) {
  if ((flags & draw::kCenter) != 0) return rect.left() + (rect.width() - width) / 2;
  if ((flags & draw::kRight) != 0) return rect.left() + rect.width() - width;
  return rect.left();
}

int TopOf(const QRect& rect, int height, std::uint32_t flags) {
  if ((flags & draw::kSingleLine) == 0) return rect.top();
  if ((flags & draw::kVCenter) != 0) return rect.top() + (rect.height() - height) / 2;
  if ((flags & draw::kBottom) != 0) return rect.top() + rect.height() - height;
  return rect.top();
}

}  // namespace

QSize DrawText(QPainter& painter, const QRect& rect, QString& text, std::uint32_t flags) {
  const QFontMetrics metrics = painter.fontMetrics();
  Lines lines = BreakText(metrics, rect.width(), text, flags);
  if ((flags & draw::kCalcRect) != 0) return SizeOf(metrics, lines, flags);
  Shorten(metrics, rect.size(), flags, lines);
  if ((flags & draw::kModifyString) != 0 && lines.shortened) text = lines.lines.join(u'\n');
  const QSize size = SizeOf(metrics, lines, flags);
  const int step = LineHeight(metrics, flags);
  int top = TopOf(rect, size.height(), flags);
  painter.save();
  if ((flags & draw::kNoClip) == 0) painter.setClipRect(rect, Qt::IntersectClip);
  for (int i = 0; i < lines.lines.size(); ++i, top += step) {
    // An edit doesn't show a line that fits only in part.
    if ((flags & draw::kEditControl) != 0 && i > 0 && top + step > rect.top() + rect.height()) break;
    const QString& line = lines.lines[i];
    const int left = LeftOf(rect, LineWidth(metrics, line, flags), flags);
    DrawLine(painter, left, top + metrics.ascent(), line, flags, i == 0 ? lines.marked : -1);
  }
  painter.restore();
  return size;
}

QSize DrawText(QPainter& painter, const QRect& rect, const QString& text, std::uint32_t flags) {
  QString copy = text;
  return DrawText(painter, rect, copy, flags & ~draw::kModifyString);
}

QSize MeasureText(const QFontMetrics& metrics, int width, const QString& text, std::uint32_t flags) {
  return SizeOf(metrics, BreakText(metrics, width, text, flags), flags);
}

QString ShortenText(const QFontMetrics& metrics, QSize size, const QString& text, std::uint32_t flags) {
  Lines lines = BreakText(metrics, size.width(), text, flags);
  Shorten(metrics, size, flags, lines);
  return lines.lines.join(u'\n');
}

}  // namespace pnl
