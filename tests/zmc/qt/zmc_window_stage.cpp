// SPDX-License-Identifier: MIT
#include "zmc_window_stage.h"

#include <QtWidgets/QAbstractItemView>

// How key presses reach the shortcuts of a window, as the platform sends them.
extern Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject* object, ulong timestamp, int key,
                                                      Qt::KeyboardModifiers modifiers, const QString& text,
                                                      bool repeats, ushort count);

namespace pnl::test {
namespace {

constexpr const char* kFactoryData =
    "<CondicionesCorte><MaterialesDefinition>"
    "<MaterialDefinition><id>1.0503#F-1142#1045</id><descripcion>Steel</descripcion><Norma><AlemaniaW>1.0503</"
    "AlemaniaW>"
    "<UNE>F-1142</UNE><AISI>1045</AISI></Norma><KC>2000</KC></MaterialDefinition>"
    "<MaterialDefinition><id>##</id><descripcion>Brass</descripcion><KC>800</KC></MaterialDefinition>"
    "</MaterialesDefinition><Operaciones>"
    "<Operacion><id>1</id><descripcion>Milling</descripcion><ToolType>Milling cutter</ToolType><Materiales><Parametros>"
    "<Material>Steel</Material>"
    "<VelocidadCorte><Min>800000000</Min><Max>1600000000</Max></VelocidadCorte>"
    "<AvancePorDiente><Min>200</Min><Max>1000</Max></AvancePorDiente>"
    "<Profundidad><Min>5000</Min><Max>30000</Max></Profundidad>"
    "<PasadaRadial><Min>10</Min><Max>100</Max></PasadaRadial>"
    "<CaracteristicasHta><Calidad>Carbide P25</Calidad></CaracteristicasHta></Parametros></Materiales></Operacion>"
    "<Operacion><id>2</id><descripcion>Turning</descripcion><ToolType>Turning tool</ToolType></Operacion>"
    "</Operaciones></CondicionesCorte>";

}  // namespace

ZmcWindowStage::ZmcWindowStage(QSize size) : WindowStage(size + QSize(100, 100), QRect(QPoint(20, 10), size)) {
  noting.onMessage = [](const HostMessage&) {};
  for (const TextView name : {TextView(u"MPG.INCHES"), TextView(u"DM.CNC.MODELID"), TextView(u"DM.OPTION.DUALPURPOSE"),
                              TextView(u"DM.ZMC.SUNIT"), TextView(u"DM.SFORMAT.PRECISION")}) {
    Define(name, 0);
  }
  for (const TextView name : {TextView(u"G.FOCUSCHANNEL"), TextView(u"[1].G.MASTERSP"), TextView(u"DM.OPTION.DMC"),
                              TextView(u"SP.DMCSPDL"), TextView(u"DM.FFORMAT.PRECISION")}) {
    Define(name, 1);
  }
  Define(u"MPA.DRIVETYPE.S", 16);
  Define(u"DM.DMC.RATEDPOWER", 10);
  Define(u"DM.FFORMAT.WIDTH", 5);
  Define(u"DM.SFORMAT.WIDTH", 5);
  cnc.Define(u"G.GSPDLNAME1", rig::VariableType::kText, std::u16string(u"S"), true, true);
  cnc.Define(u"E.HELPDATA", rig::VariableType::kText, std::u16string(), true, true);
  cnc.Tables().SetTool(3, 1, {1, 1, 100000, 4});  // an end mill of 10 mm
  cnc.Tables().SetTool(4, 1, {1, 2, 60000, 2});   // a ball nose
  cnc.Tables().SetTool(7, 5, {5, 10, 0, 1});      // a turning tool
  Disc("C:\\P24\\CondicionesCorte.xml", kFactoryData);
  Settings("LastMat=Steel\r\nLastOpe=Milling\r\nLastTool=T3\r\n");
}

void ZmcWindowStage::Open() {
  Use(tool = new ZCZelorMacCalc(context, area));
  tool->Start();
  Settle();
}

void ZmcWindowStage::OpenBare() {
  Settings("");
  Open();
}

std::string ZmcWindowStage::Stored(const std::string& key) const {
  const std::string all = OnDisc("C:\\P52\\ZMC7340.ini");
  const std::size_t at = all.find("\n" + key + "=");
  if (at == std::string::npos) return "none";
  const std::size_t from = at + key.size() + 2;
  return all.substr(from, all.find('\r', from) - from);
}

bool ZmcWindowStage::Key(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  QWidget* receiver = WindowStage::Focus();
  if (QWidget* popup = QApplication::activePopupWidget()) {
    receiver = popup->focusWidget() != nullptr ? popup->focusWidget() : popup;
  }
  if (receiver == nullptr) receiver = &panel;
  const QPointer<QWidget> alive = receiver;
  const bool shortcut = qt_sendShortcutOverrideEvent(receiver, 0, key, modifiers, text, false, 1);
  const bool taken = !shortcut && alive && PressKey(receiver, key, text, modifiers);
  Settle();
  return taken;
}

void ZmcWindowStage::Write(const QString& text) {
  for (const QChar c : text) Key(c.toUpper().unicode(), {}, QString(c));
}

void ZmcWindowStage::Focus(int id) {
  if (QWidget* control = Main(id)) control->setFocus(Qt::MouseFocusReason);
  Settle();
}

int ZmcWindowStage::FocusedId() const {
  for (const QWidget* widget = QApplication::focusWidget(); widget != nullptr; widget = widget->parentWidget()) {
    if (ControlId(widget) > 0) return ControlId(widget);
  }
  return 0;
}

QWidget* ZmcWindowStage::Page(ZmcTab tab) const {
  if (area.isNull()) return nullptr;
  switch (tab) {
    case ZmcTab::kMain:
      return area->findChild<ZCTabZMCMain*>();
    case ZmcTab::kMaterials:
      return area->findChild<ZCTabZMCMateriales*>();
    case ZmcTab::kOperations:
      break;
  }
  return area->findChild<ZCTabZMCOperaciones*>();
}

QWidget* ZmcWindowStage::On(ZmcTab tab, int id) const {
  const QWidget* page = Page(tab);
  return page != nullptr ? FindControl(page, id) : nullptr;
}

std::string ZmcWindowStage::MainText(int id) const {
  if (const ZCDatoWrap* field = Field(id)) return field->Written().toStdString();
  if (const QLineEdit* line = Line(id)) return line->text().toStdString();
  if (const ZmcBox* box = Box(id)) return box->currentText().toStdString();
  return Main(id)->property("pnlText").toString().toStdString();
}

ZCGridXWrap* ZmcWindowStage::Grid(ZmcTab tab) const {
  const QWidget* page = Page(tab);
  return page != nullptr ? page->findChild<ZCGridXWrap*>() : nullptr;
}

QPoint ZmcWindowStage::CellPlace(int row, int col, ZmcTab tab) const {
  ZCGridXWrap* grid = Grid(tab);
  const QModelIndex cell = grid->model()->index(row - 1, col);
  grid->scrollTo(cell);
  return grid->visualRect(cell).center();
}

void ZmcWindowStage::TouchCell(int row, int col, ZmcTab tab) {
  const QPointer<QWidget> viewport = Grid(tab)->viewport();
  const QPoint place = CellPlace(row, col, tab);
  PressMouse(viewport, place);
  if (viewport) PressMouse(viewport, place, QEvent::MouseButtonRelease);
  Settle();
}

void ZmcWindowStage::TouchItem(int box, int item) {
  QAbstractItemView* list = Box(box)->view();
  const QModelIndex index = list->model()->index(item, 0);
  list->scrollTo(index);
  const QPoint place = list->visualRect(index).center();
  const QPointer<QWidget> viewport = list->viewport();
  // The list ignores a release that may still belong to the press that has opened it, until the pointer has moved.
  PressMouse(viewport, viewport->rect().bottomRight() + QPoint(50, 50), QEvent::MouseMove);
  for (const auto type : {QEvent::MouseMove, QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    if (viewport) PressMouse(viewport, place, type);
  }
  Settle();
}

void ZmcWindowStage::EditCell(int row, int col, const QString& text, ZmcTab tab) {
  Grid(tab)->setFocus();
  Grid(tab)->Select(row, col);
  Write(text);
  Key(Qt::Key_Return);
}

}  // namespace pnl::test
