// SPDX-License-Identifier: MIT
// Damaged and hostile files, texts that XML can't hold, and discs that fail: nothing is lost, nothing hangs.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <limits>
#include <random>

#include "cutting_rig.h"
#include "support/failing_files.h"
#include "support/temp_folder.h"
#include "zmc/store/cutting_text.h"

namespace pnl::test {
namespace {

using namespace std::string_literals;

class CuttingDamage : public CuttingRig {
 protected:
  /// Every kind of update.
  [[nodiscard]] static std::vector<std::function<CuttingError(CondicionesCorteParser&)>> Updates() {
    return {
        [](auto& store) {
          return store.UpdateCondicionesCorteParam(kUserPath, Operation(u"Drilling"), Material(u"Steel"), 2, 50, {});
        },
        [](auto& store) { return store.UpdateMaterialDefinition(kUserPath, u"", u"", Material(u"Iron")); },
        [](auto& store) { return store.UpdateOperationWithoutMaterials(kUserPath, u"", u"", Operation(u"Boring")); },
        [](auto& store) { return store.DeleteMaterialDefinition(kUserPath, u"Steel"); },
        [](auto& store) { return store.DeleteOperation(kUserPath, u"Drilling"); },
    };
  }
  static std::string Healthy() {
    return CuttingFile("<MaterialDefinition><descripcion>Steel</descripcion></MaterialDefinition>",
                       "<Operacion><descripcion>Drilling</descripcion></Operacion>");
  }
  void ExpectRefusedAndUntouched(const std::string& bytes) {
    SCOPED_TRACE(testing::PrintToString(bytes.substr(bytes.size() - std::min<std::size_t>(bytes.size(), 100))));
    PutUser(bytes);
    EXPECT_EQ(parser.GetListaMateriales(kUserPath).Error(), CuttingError::kXmlEngine);
    EXPECT_EQ(parser.GetListaOperaciones(kUserPath).Error(), CuttingError::kXmlEngine);
    EXPECT_EQ(parser.GetCondicionesCorte(kUserPath, u"Steel", u"Drilling").Error(), CuttingError::kXmlEngine);
    for (const auto& update : Updates()) EXPECT_EQ(update(parser), CuttingError::kXmlEngine);
    EXPECT_EQ(User(), bytes);
    EXPECT_TRUE(files.replaced.empty());
  }
};

TEST_F(CuttingDamage, AFileThatIsNoDocumentOfOursIsReportedAndNeverWritten) {
  const std::string good = Healthy();
  const std::string kRows[] = {
      "",
      " \n",
      "plain text",
      good.substr(0, good.size() - 1),
      good.substr(0, good.size() / 2),
      "x" + good,
      good + "x",
      good + "xyz",
      good + "x<!-- y -->",
      good + "<!-- y -->x\n",
      good + good,
      good + "<other/>",
      good + "<![CDATA[x]]>",
      good + "\0"s,
      good + "\0<more/>"s,
      "<Other/>",
      "<condicionescorte/>",
      "<Other><CondicionesCorte/></Other>",
      "<!-- only a comment -->",
      "<?xml version=\"1.0\"?>",
      "<CondicionesCorte><MaterialesDefinition></CondicionesCorte>",
      "<CondicionesCorte a=b/>",
      "<CondicionesCorte><!-- not closed</CondicionesCorte>",
      "<CondicionesCorte><![CDATA[ not closed</CondicionesCorte>",
      "<CondicionesCorte>&#0;</CondicionesCorte>",
      "<CondicionesCorte>\x01</CondicionesCorte>",
      "<CondicionesCorte>\xE9</CondicionesCorte>",
      "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><CondicionesCorte>\xC3\xA9</CondicionesCorte>",
      "\xFE\xFF\0<\0C"s,
      "\xFF\xFE<\0C"s,
      "\xFF\xFE"s,
      "\xEF\xBB\xBF"s,
      "<!DOCTYPE CondicionesCorte [<CondicionesCorte/>",
  };
  for (const std::string& bytes : kRows) ExpectRefusedAndUntouched(bytes);
}

TEST_F(CuttingDamage, EveryFileThatIsCutOffIsRefused) {
  const std::string good = "\n" + Healthy();
  for (std::size_t length = 0; length < good.size(); ++length) ExpectRefusedAndUntouched(good.substr(0, length));
}

TEST_F(CuttingDamage, DeclaredEncodingsAreReadWhereTheyMeanTheSame) {
  const std::string text = "<CondicionesCorte><MaterialesDefinition><MaterialDefinition><KC>";
  const std::string end = "</KC></MaterialDefinition></MaterialesDefinition></CondicionesCorte>";
  const struct {
    const char* name;
    const char* inside;
    bool read;
  } kRows[] = {{"UTF-8", "\xC3\xA9", true},   {"utf-8", "\xC3\xA9", true}, {"utf8", "\xC3\xA9", true},
               {"UTF-16", "\xC3\xA9", true},  {"", "\xC3\xA9", true},      {"windows-1252", "\xC3\xA9", false},
               {"ISO-8859-1", "plain", true}, {"UTF-1", "\xC3\xA9", false}};
  for (const auto& row : kRows) {
    PutUser("<?xml version=\"1.0\" encoding=\"" + std::string(row.name) + "\"?>" + text + row.inside + end);
    EXPECT_EQ(parser.GetListaMateriales(kUserPath).Ok(), row.read) << row.name;
    if (!row.read) continue;
    EXPECT_EQ(UserMaterials().MaterialDefinition[0].KC, FromUtf8(row.inside));
    EXPECT_EQ(Update(0, 1), CuttingError::kNone);
    EXPECT_TRUE(User().starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"));
    EXPECT_EQ(UserMaterials().MaterialDefinition[0].KC, FromUtf8(row.inside));
  }
}

TEST_F(CuttingDamage, SixteenBitFilesAreReadAndBecomeUtf8) {
  const std::string text = CuttingFile(
      "<MaterialDefinition><descripcion>Gr\xC3\xBCn \xF0\x9F\x98\x80</descripcion>"
      "</MaterialDefinition>");
  for (const std::string& mark : {""s, "\xFF\xFE"s}) {
    std::string wide = mark;
    for (const char16_t c : FromUtf8(text)) wide += {static_cast<char>(c & 0xFF), static_cast<char>(c >> 8)};
    PutUser(wide);
    EXPECT_EQ(UserMaterials().MaterialDefinition[0].descripcion, u"Gr\u00fcn \U0001F600");
    EXPECT_EQ(Update(0, 1), CuttingError::kNone);
    EXPECT_TRUE(User().starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<CondicionesCorte>\n"));
    EXPECT_EQ(UserMaterials().MaterialDefinition[0].descripcion, u"Gr\u00fcn \U0001F600");
  }
}

TEST_F(CuttingDamage, EntitiesAreNeverExpanded) {
  std::string bomb = "<!DOCTYPE CondicionesCorte [<!ENTITY a \"aaaaaaaaaa\">";
  for (char c = 'b'; c <= 'z'; ++c) {
    bomb += std::string("<!ENTITY ") + c + " \"";
    for (int i = 0; i < 10; ++i) bomb += std::string("&") + static_cast<char>(c - 1) + ";";
    bomb += "\">";
  }
  bomb += "<!ENTITY file SYSTEM \"file:///etc/hostname\">]>" +
          CuttingFile("<MaterialDefinition><descripcion>&z;&file;</descripcion></MaterialDefinition>");
  PutUser(bomb);
  EXPECT_EQ(UserMaterials().MaterialDefinition[0].descripcion, u"&z;&file;");
  EXPECT_EQ(Update(0, 1), CuttingError::kNone);
  EXPECT_EQ(UserMaterials().MaterialDefinition[0].descripcion, u"&z;&file;");
  EXPECT_NE(User().find("<!ENTITY file SYSTEM"), std::string::npos);
  EXPECT_LT(User().size(), bomb.size() + 1000);
}

std::string Deep(int depth, const std::string& inside) {
  std::string text;
  text.reserve(static_cast<std::size_t>(depth) * 7 + inside.size());
  for (int i = 0; i < depth; ++i) text += "<d>";
  text += inside;
  for (int i = 0; i < depth; ++i) text += "</d>";
  return text;
}

TEST_F(CuttingDamage, NestingHasNoLimit) {
  // Far less stack than the main thread has, so that recursion would show.
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    const rlimit small{1 << 18, 1 << 18};
    setrlimit(RLIMIT_STACK, &small);
    bool good = true;
    for (const int depth : {10'000, 1'000'000}) {
      PutUser(CuttingFile("<MaterialDefinition><descripcion>Steel</descripcion>" + Deep(depth, "x") +
                              "</MaterialDefinition><MaterialDefinition>" + Deep(depth, "x") + "</MaterialDefinition>",
                          "<Operacion><descripcion>Drilling</descripcion>" + Deep(depth, "") + "</Operacion>"));
      good = good && UserMaterials().MaterialDefinition.size() == 2;
      good = good && Update(0, 1) == CuttingError::kNone;
      // Not indented: that alone would be the square of the depth.
      good = good && User().size() < static_cast<std::size_t>(depth) * 30;
      good = good && User().find(Deep(depth, "x")) != std::string::npos;
      good = good && parser.DeleteMaterialDefinition(kUserPath, u"Steel") == CuttingError::kNone;
      good = good && parser.DeleteOperation(kUserPath, u"Drilling") == CuttingError::kNone;
      good = good && UserMaterials().MaterialDefinition.size() == 1;
    }
    PutUser(Deep(1'000'000, "x"));
    good = good && parser.GetListaMateriales(kUserPath).Error() == CuttingError::kXmlEngine;
    std::string open;
    for (int i = 0; i < 1'000'000; ++i) open += "<d>";
    PutUser(open);
    good = good && parser.GetListaMateriales(kUserPath).Error() == CuttingError::kXmlEngine;
    PutUser("<!DOCTYPE d " + std::string(1'000'000, '[') + "<CondicionesCorte/>");
    good = good && parser.GetListaMateriales(kUserPath).Error() == CuttingError::kXmlEngine;
    std::string types = "<!DOCTYPE d [";
    for (int i = 0; i < 1'000'000; ++i) types += "<![INCLUDE[";
    PutUser(types);
    good = good && parser.GetListaMateriales(kUserPath).Error() == CuttingError::kXmlEngine;
    _exit(good && !HasFailure() ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status)) << "signal " << WTERMSIG(status);
  EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST_F(CuttingDamage, AnyTextThatXmlHoldsComesBackAsItWas) {
  const Text kRows[] = {
      u"\"double\" 'single'",
      u"<MaterialDefinition>",
      u"</descripcion>",
      u"a & b &amp; &#0; &lol;",
      u"]]> <![CDATA[ x ]]>",
      u"<!-- x --",
      u"line\nfeed\n",
      u"\r\nboth\r",
      u"tab\there",
      u"1e999",
      u"nan",
      u"0x10",
      u"\u00f1\u4e2d\U0001F600\u007f\u0085\u2028\ufffd",
      Text(10'000, u'x'),
      Text(10'000, u'&'),
  };
  for (const Text& text : kRows) {
    SCOPED_TRACE(ToUtf8(text.substr(0, 50)));
    PutUser(CuttingFile(""));
    CT_MaterialDefinition record{text, text, {text, text, text}, text, false, text};
    EXPECT_EQ(parser.UpdateMaterialDefinition(kUserPath, u"", u"", record), CuttingError::kNone);
    record.descripcion = Text(Trim(text));
    EXPECT_EQ(parser.UpdateCondicionesCorteParam(kUserPath, Operation(text, text, text), record, 12, 0, text),
              CuttingError::kNone);
    CondicionesCorteParser fresh(files);
    EXPECT_EQ(fresh.GetListaMateriales(kUserPath).Value().MaterialDefinition.at(0), record);
    EXPECT_EQ(fresh.GetListaOperaciones(kUserPath).Value().Operacion.at(0), Operation(text, text, text));
    EXPECT_EQ(fresh.GetCondicionesCorte(kUserPath, Trim(text), text).Value().value().Observaciones.Descripcion, text);
    EXPECT_EQ(parser.DeleteMaterialDefinition(kUserPath, *record.descripcion), CuttingError::kNone);
    EXPECT_TRUE(UserMaterials().MaterialDefinition.empty());
  }
}

TEST_F(CuttingDamage, ABlankRemarkIsARemark) {
  for (const TextView remark : {u" ", u"\n", u"\r", u"  \t "}) {
    PutUser(CuttingFile(""));
    ASSERT_EQ(Update(12, 0, remark), CuttingError::kNone);
    ASSERT_EQ(Update(0, 1), CuttingError::kNone);
    CondicionesCorteParser fresh(files);
    const auto block = fresh.GetCondicionesCorte(kUserPath, u"Steel", u"Drilling");
    EXPECT_EQ(block.Value().value().Observaciones.Descripcion, Text(remark));
  }
}

TEST_F(CuttingDamage, WhatXmlCannotHoldIsRefusedAndNothingIsWritten) {
  PutUser(Healthy());
  const Text bad[] = {Text(u"a\0b", 3), u"a\u0001", Text(1, char16_t(0xD800)), Text(1, char16_t(0xFFFF))};
  for (const Text& text : bad) {
    ASSERT_FALSE(CanHoldCuttingText(text));
    const auto material = [&](CT_MaterialDefinition record) {
      EXPECT_EQ(parser.UpdateMaterialDefinition(kUserPath, u"", u"", record), CuttingError::kNotHoldable);
    };
    material(Material(text));
    material(Material(u"a", text));
    material(Material(u"a", u"", false, text));
    material({text, u"a", {}, {}, false, {}});
    material({{}, u"a", {text, {}, {}}, {}, false, {}});
    material({{}, u"a", {{}, text, {}}, {}, false, {}});
    material({{}, u"a", {{}, {}, text}, {}, false, {}});
    for (const CT_Operacion& record :
         {Operation(text), Operation(u"a", text), Operation(u"a", u"", text), Operation(u"a", u"", u"", text)}) {
      EXPECT_EQ(parser.UpdateOperationWithoutMaterials(kUserPath, u"", u"", record), CuttingError::kNotHoldable);
      EXPECT_EQ(parser.UpdateCondicionesCorteParam(kUserPath, record, Material(u"a"), 0, 1, {}),
                CuttingError::kNotHoldable);
    }
    EXPECT_EQ(parser.UpdateCondicionesCorteParam(kUserPath, Operation(u"a"), Material(text), 0, 1, {}),
              CuttingError::kNotHoldable);
    EXPECT_EQ(Update(12, 0, text), CuttingError::kNotHoldable);
    EXPECT_EQ(Update(11, 0, text), CuttingError::kNone) << "a number's text isn't stored";
    EXPECT_EQ(parser.DeleteOperation(kUserPath, u"Drilling"), CuttingError::kNone);
    PutUser(Healthy());
    files.replaced.clear();
  }
}

TEST_F(CuttingDamage, NumbersAndParametersThatDoNotExistAreRefused) {
  PutUser(Healthy());
  for (const double value : {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(Update(0, value), CuttingError::kNotHoldable);
  }
  for (const int param : {-1, 13, 2147483647, -2147483647 - 1}) EXPECT_EQ(Update(param, 1), CuttingError::kNotHoldable);
  EXPECT_EQ(parser.UpdateCondicionesCorteParam(kUserPath, Operation(u""), Material(u"Steel"), 0, 1, {}),
            CuttingError::kNotHoldable);
  EXPECT_EQ(parser.UpdateCondicionesCorteParam(kUserPath, Operation(u"Drilling"), Material(u""), 0, 1, {}),
            CuttingError::kNotHoldable);
  EXPECT_EQ(User(), Healthy());
}

TEST_F(CuttingDamage, AFileThatVanishedIsNotMadeAgain) {
  PutUser(Healthy());
  EXPECT_EQ(UserMaterials().MaterialDefinition.size(), 1u);
  files.disc.clear();
  for (const auto& update : Updates()) EXPECT_EQ(update(parser), CuttingError::kNotFound);
  EXPECT_EQ(parser.GetListaMateriales(kUserPath).Error(), CuttingError::kNotFound);
  EXPECT_TRUE(files.disc.empty());
  files.away.insert("C:\\P118");
  for (const auto& update : Updates()) EXPECT_EQ(update(parser), CuttingError::kOutOfReach);
}

TEST_F(CuttingDamage, AnUpdateThatTheDiscRefusesChangesNothing) {
  FailingFiles failing(files);
  const struct {
    FileStatus status;
    CuttingError error;
  } kRows[] = {
      {FileStatus::kDiscFull, CuttingError::kDiscFull},    {FileStatus::kDenied, CuttingError::kNotWritable},
      {FileStatus::kIsFolder, CuttingError::kNotWritable}, {FileStatus::kOutOfReach, CuttingError::kOutOfReach},
      {FileStatus::kNotFound, CuttingError::kOutOfReach},  {FileStatus::kFailed, CuttingError::kFailed}};
  for (const auto& row : kRows) {
    for (const auto& update : Updates()) {
      PutUser(Healthy());
      CondicionesCorteParser store(failing);
      failing.Fail(FailingFiles::Call::kReplace, kUserPath, row.status);
      EXPECT_EQ(update(store), row.error);
      EXPECT_EQ(User(), Healthy());
      // The store doesn't believe its own change either.
      EXPECT_EQ(store.GetListaMateriales(kUserPath).Value().MaterialDefinition.size(), 1u);
      EXPECT_EQ(store.GetListaOperaciones(kUserPath).Value().Operacion.size(), 1u);
      EXPECT_FALSE(store.GetCondicionesCorte(kUserPath, u"Steel", u"Drilling").Value().has_value());
      EXPECT_EQ(update(store), CuttingError::kNone);
      EXPECT_NE(User(), Healthy());
    }
  }
}

TEST_F(CuttingDamage, AFolderThatMayNotBeWrittenKeepsTheFile) {
  const TempFolder temp;
  temp.Write("user/CondicionesCorteP.xml", Healthy());
  DriveMap drives;
  drives.Set('C', temp.Path().string());
  DiscFiles disc(drives);
  CondicionesCorteParser store(disc);
  std::filesystem::permissions(temp.Path() / "user", std::filesystem::perms::owner_write,
                               std::filesystem::perm_options::remove);
  EXPECT_EQ(store.UpdateMaterialDefinition(u"C:\\user\\CondicionesCorteP.xml", u"", u"", Material(u"Iron")),
            CuttingError::kNotWritable);
  EXPECT_EQ(temp.Read("user/CondicionesCorteP.xml"), Healthy());
}

TEST_F(CuttingDamage, RandomUpdatesLeaveWhatAFreshStoreReads) {
  std::mt19937 random(11);
  PutUser(
      CuttingFile("<!-- kept --><MaterialDefinition note=\"n\"><descripcion>a</descripcion><x> </x>"
                  "</MaterialDefinition>"));
  const Text names[] = {u"a", u"b", u"<c>", u"d\r", u"e f"};
  const auto name = [&] { return names[random() % std::size(names)]; };
  for (int round = 0; round < 150; ++round) {
    CuttingError error = CuttingError::kNone;
    switch (random() % 6) {
      case 0:
        error =
            parser.UpdateMaterialDefinition(kUserPath, name(), {}, Material(name(), u"1", random() % 2 == 0, name()));
        break;
      case 1:
        error = parser.UpdateOperationWithoutMaterials(kUserPath, name(), name(), Operation(name(), name(), name()));
        break;
      case 2:
        error = random() % 2 == 0 ? parser.DeleteMaterialDefinition(kUserPath, name())
                                  : parser.DeleteOperation(kUserPath, name());
        break;
      default:
        error = parser.UpdateCondicionesCorteParam(kUserPath, Operation(name(), name()), Material(name()),
                                                   static_cast<int>(random() % 13), random() % 1000, name());
    }
    ASSERT_EQ(error, CuttingError::kNone);
    CondicionesCorteParser fresh(files);
    ASSERT_EQ(fresh.GetListaMateriales(kUserPath).Value().MaterialDefinition, UserMaterials().MaterialDefinition);
    ASSERT_EQ(fresh.GetListaOperaciones(kUserPath).Value().Operacion, UserOperations().Operacion);
    for (const Text& material : names) {
      for (const Text& operation : names) {
        ASSERT_EQ(fresh.GetCondicionesCorte(kUserPath, material, operation).Value(),
                  parser.GetCondicionesCorte(kUserPath, material, operation).Value());
      }
    }
  }
  EXPECT_NE(User().find("<!-- kept -->"), std::string::npos);
}

}  // namespace
}  // namespace pnl::test
