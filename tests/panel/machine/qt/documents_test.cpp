// SPDX-License-Identifier: MIT
// The manuals and the PLC's documents on the demo machine's drive, by the language of the panel.
#include <gtest/gtest.h>
#include <pnltools/pnltools.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QImageReader>

#include "panel/machine/qt/demo_machine.h"

namespace panel {
namespace {

constexpr int kHelpFallback = 18;
constexpr int kHelpThird = 57;
constexpr int kPlcFiles = 61;
constexpr int kHelpLanguage = 113;

QByteArray BytesOf(const QString& name) {
  QFile file(name);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class Documents : public ::testing::Test {
 protected:
  ~Documents() override { PnlSetLanguage("en"); }
  [[nodiscard]] std::u16string Path(int id) { return rig_.Files().Path(id); }
  /// The folder of a path id on this machine.
  [[nodiscard]] QDir Folder(int id) {
    return QDir(QString::fromStdString(rig_.Files().HostPath(Path(id)).value_or("/nowhere")));
  }
  /// Expects exactly the files that the build made in that folder of the shared ones.
  void ExpectFilesOf(const QString& shared, const QDir& folder) {
    const QDir built(QStringLiteral(PNL_SHARE_FOLDER "/") + shared);
    const QStringList names = built.entryList(QDir::Files);
    EXPECT_FALSE(names.isEmpty()) << qPrintable(shared);
    EXPECT_EQ(names, folder.entryList(QDir::Files)) << qPrintable(shared);
    for (const QString& name : names) {
      EXPECT_EQ(BytesOf(built.filePath(name)), BytesOf(folder.filePath(name))) << qPrintable(name);
    }
  }

  pnl::rig::Rig& rig_ = DemoMachine();
};

TEST_F(Documents, AreInTheFoldersOfTheLanguageInUse) {
  for (const char* language : {"es", "en"}) {
    ASSERT_EQ(PnlSetLanguage(language), 1);
    const QString code = QString::fromLatin1(language);
    EXPECT_EQ(Path(kHelpLanguage), u"C:\\CNC\\HELP\\" + code.toUpper().toStdU16String());
    EXPECT_EQ(Path(kPlcFiles), u"C:\\CNC\\PLC\\" + code.toUpper().toStdU16String());
    ExpectFilesOf(QStringLiteral("manuals/") + code, Folder(kHelpLanguage));
    ExpectFilesOf(QStringLiteral("plc/") + code, Folder(kPlcFiles));
  }
}

TEST_F(Documents, OfHelpFallBackOnTheEnglishManuals) {
  PnlSetLanguage("es");
  EXPECT_EQ(Path(kHelpFallback), u"C:\\CNC\\HELP\\EN");
  ExpectFilesOf(QStringLiteral("manuals/en"), Folder(kHelpFallback));
  EXPECT_TRUE(Folder(kHelpThird).exists()) << "the machine builder's manuals have a folder of their own";
}

TEST_F(Documents, WithoutALanguageAreThoseOfThePackInUse) {
  PnlSetLanguage("es");
  EXPECT_EQ(PnlSetLanguage("xx"), 0);
  EXPECT_EQ(Path(kHelpLanguage), u"C:\\CNC\\HELP\\ES");
  EXPECT_EQ(PnlSetLanguage("none"), 1);
  EXPECT_EQ(Path(kHelpLanguage), u"C:\\CNC\\HELP\\EN");
}

TEST_F(Documents, HaveTheirTextsByNumberInEveryLanguage) {
  const auto text = [&](const char16_t* folder) {
    return rig_.Cnc().DescriptionBehind(std::u16string(folder) + u"\\messages.txt#1").value_or(u"");
  };
  EXPECT_TRUE(text(u"C:\\CNC\\PLC\\EN").starts_with(u"The safety door"));
  EXPECT_TRUE(text(u"C:\\CNC\\PLC\\ES").starts_with(u"La puerta de seguridad"));
}

TEST_F(Documents, AMessageOfThePlcIsRaisedByItsCode) {
  int reports = 0;
  const int watch = rig_.Cnc().Watch(u"E.PLCMSGDATA", [&reports] { ++reports; });
  EXPECT_TRUE(rig_.Cnc().Set(u"E.PLCMSGDATA", std::int64_t{0x10000001}));
  rig_.Cnc().Unwatch(watch);
  EXPECT_EQ(reports, 1);
  EXPECT_EQ(std::get<std::int64_t>(*rig_.Cnc().Get(u"E.PLCMSGDATA")), 0x10000001);
}

TEST_F(Documents, WithPicturesCanBeShown) {
  const QColor paper(0xF4, 0xF6, 0xF8);
  const struct {
    const char* name;
    QSize size;
    int pictures;
  } rows[] = {{"coolant.png", {320, 200}, 1},
              {"air.png", {240, 200}, 1},
              {"chips.bmp", {320, 200}, 1},
              {"lubrication.jpg", {400, 264}, 1},
              {"clamp.gif", {240, 160}, 8}};
  for (const auto& row : rows) {
    QImageReader reader(Folder(kPlcFiles).filePath(QString::fromLatin1(row.name)));
    QImage first;
    QImage last;
    int pictures = 0;
    for (QImage image = reader.read(); !image.isNull(); image = reader.read()) {
      EXPECT_EQ(image.size(), row.size) << row.name;
      if (pictures++ == 0) first = image;
      last = image;
      if (!reader.supportsAnimation()) break;
    }
    EXPECT_EQ(pictures, row.pictures) << row.name;
    ASSERT_FALSE(first.isNull()) << row.name;
    const QColor corner = first.pixelColor(row.size.width() - 1, row.size.height() - 8);
    EXPECT_LE(std::abs(corner.red() - paper.red()) + std::abs(corner.blue() - paper.blue()), 6) << row.name;
    EXPECT_EQ(first != last, row.pictures > 1) << row.name;
  }
}

TEST_F(Documents, WithAVideoHavePicturesThatMove) {
  const QByteArray video = BytesOf(Folder(kPlcFiles).filePath(QStringLiteral("toolchange.avi")));
  QImage before;
  int pictures = 0;
  int moves = 0;
  for (qsizetype at = video.indexOf("\xFF\xD8\xFF"); at >= 0; at = video.indexOf("\xFF\xD8\xFF", at + 3)) {
    const QImage image = QImage::fromData(video.mid(at), "JPG");
    ASSERT_EQ(image.size(), QSize(320, 240)) << pictures;
    ++pictures;
    if (image != before) ++moves;
    before = image;
  }
  EXPECT_EQ(pictures, 36);
  EXPECT_GE(moves, 25);
}

}  // namespace
}  // namespace panel
