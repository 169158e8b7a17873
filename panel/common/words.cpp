// SPDX-License-Identifier: MIT
#include "common/words.h"

#include <array>

namespace panel {
namespace {

struct Row {
  Word word;
  const char* english;
  const char* spanish;
};

constexpr std::array kWords = {
    Row{Word::kReady, "READY", "LISTO"},
    Row{Word::kRunning, "RUNNING", "EN MARCHA"},
    Row{Word::kInterrupted, "INTERRUPTED", "INTERRUMPIDO"},
    Row{Word::kFeedHold, "FEED HOLD", "RETENCIÓN"},
    Row{Word::kAborted, "ABORTED", "ABORTADO"},
    Row{Word::kInspection, "INSPECTION", "INSPECCIÓN"},
    Row{Word::kNoMachine, "NO MACHINE", "SIN MÁQUINA"},
    Row{Word::kEmergencyStop, "EMERGENCY STOP", "PARADA DE EMERGENCIA"},
    Row{Word::kAutomatic, "AUTO", "AUTO"},
    Row{Word::kManual, "MANUAL", "MANUAL"},
    Row{Word::kMdiMode, "MDI", "MDI"},
    Row{Word::kFeed, "F  mm/min", "F  mm/min"},
    Row{Word::kFeedPerRevolution, "F  mm/rev", "F  mm/rev"},
    Row{Word::kFeedInch, "F  in/min", "F  in/min"},
    Row{Word::kFeedInchPerRevolution, "F  in/rev", "F  in/rev"},
    Row{Word::kOverride, "OVERRIDE", "OVERRIDE"},
    Row{Word::kSpindle, "S  rpm", "S  rpm"},
    Row{Word::kTool, "TOOL", "HERRAM."},
    Row{Word::kToGo, "to go", "resto"},
    Row{Word::kMachinePosition, "machine", "máquina"},
    Row{Word::kWorkPosition, "work", "pieza"},
    Row{Word::kCoolant, "COOLANT", "REFRIG."},
    Row{Word::kErrors, "Errors: %1", "Errores: %1"},
    Row{Word::kNoErrors, "no errors", "sin errores"},
    Row{Word::kProgram, "Program", "Programa"},
    Row{Word::kNewProgram, "new program", "programa nuevo"},
    Row{Word::kLine, "line %1", "línea %1"},
    Row{Word::kCycleStart, "Start", "Marcha"},
    Row{Word::kHold, "Hold", "Retención"},
    Row{Word::kSingleBlock, "Single", "Bloque a bloque"},
    Row{Word::kCancel, "Cancel", "Cancelar"},
    Row{Word::kReset, "Reset", "Reset"},
    Row{Word::kOverrideDown, "Feed −", "Avance −"},
    Row{Word::kOverrideUp, "Feed +", "Avance +"},
    Row{Word::kInspect, "Inspect", "Inspección"},
    Row{Word::kMdi, "MDI", "MDI"},
    Row{Word::kMdiMda, "MDI / MDA", "MDI / MDA"},
    Row{Word::kMda, "MDA list", "Lista MDA"},
    Row{Word::kHelp, "Help", "Ayuda"},
    Row{Word::kClear, "Clear error", "Borrar error"},
    Row{Word::kMore, "More keys", "Más teclas"},
    Row{Word::kBack, "Back", "Volver"},
    Row{Word::kFocusTool, "Back to the tool", "Volver a la herramienta"},
    Row{Word::kCalculator, "Calculator", "Calculadora"},
    Row{Word::kMachiningCalculator, "Machining", "Mecanizado"},
    Row{Word::kFiles, "Files", "Ficheros"},
    Row{Word::kPlcMessages, "PLC messages", "Mensajes PLC"},
    Row{Word::kErrorList, "Errors", "Errores"},
    Row{Word::kOpen, "Open program", "Abrir programa"},
    Row{Word::kSave, "Save program", "Guardar programa"},
    Row{Word::kSaveAs, "Save as", "Guardar como"},
    Row{Word::kNew, "New program", "Programa nuevo"},
    Row{Word::kCoordinates, "Work / machine", "Pieza / máquina"},
    Row{Word::kOverrideFull, "Feed 100 %", "Avance 100 %"},
    Row{Word::kNothingToStart, "Nothing to start: open MDI and type a block",
        "Nada que poner en marcha: abra MDI y escriba un bloque"},
    Row{Word::kMdiRefused, "MDI is not possible now", "MDI no es posible ahora"},
    Row{Word::kStartInInspection, "Inspection is on: the control decides when the block starts",
        "Inspección activa: el control decide cuándo arranca el bloque"},
    Row{Word::kReleaseEmergencyStop, "Emergency stop is pressed: release it first",
        "La parada de emergencia está pulsada: suéltela primero"},
    Row{Word::kToolMissing, "This tool is not installed", "Esta herramienta no está instalada"},
    Row{Word::kMachiningMissing, "The machining calculator can't open: its data can't be stored",
        "La calculadora de mecanizado no puede abrirse: sus datos no se pueden guardar"},
    Row{Word::kResultInProgram, "%1 stands in the program", "%1 está en el programa"},
    Row{Word::kResultNoNumber, "The result is not a number and was not taken",
        "El resultado no es un número y no se ha tomado"},
    Row{Word::kNoHelpHere, "There is no help for what is in front", "No hay ayuda para lo que está delante"},
    Row{Word::kSaved, "Saved: %1", "Guardado: %1"},
    Row{Word::kOpening, "Opening: %1", "Abriendo: %1"},
    Row{Word::kStillOpening, "The program is still being opened", "El programa aún se está abriendo"},
    Row{Word::kOpened, "Opened: %1", "Abierto: %1"},
    Row{Word::kCannotOpen, "Can't be read: %1", "No se puede leer: %1"},
    Row{Word::kCannotSave, "Can't be written: %1", "No se puede escribir: %1"},
    Row{Word::kNotAText, "Not a program text: %1", "No es un texto de programa: %1"},
    Row{Word::kTooBig, "Too big for the editor: %1", "Demasiado grande para el editor: %1"},
    Row{Word::kNoMachineHere, "There is no machine to act on", "No hay máquina sobre la que actuar"},
    Row{Word::kErrorNumber, "Error %1", "Error %1"},
    Row{Word::kNoRequest, "The file request has gone", "La petición de fichero ya no existe"},
    Row{Word::kOk, "OK", "Aceptar"},
    Row{Word::kClose, "Close", "Cerrar"},
    Row{Word::kExport, "Export", "Exportar"},
    Row{Word::kImport, "Import", "Importar"},
    Row{Word::kOwnChanges, "My changes", "Mis cambios"},
    Row{Word::kPlayVideo, "Play", "Reproducir"},
    Row{Word::kStopVideo, "Stop", "Detener"},
    Row{Word::kRewindVideo, "From the start", "Desde el inicio"},
    Row{Word::kPassword, "Password", "Contraseña"},
    Row{Word::kWrongPassword, "The password is wrong", "La contraseña no es correcta"},
    Row{Word::kDemoPasswordIs, "That of the demo machine is %1", "La de la máquina de demostración es %1"},
    Row{Word::kYes, "Yes", "Sí"},
    Row{Word::kNo, "No", "No"},
    Row{Word::kDiscardChanges, "The program has changes that aren't saved. Discard them?",
        "El programa tiene cambios sin guardar. ¿Descartarlos?"},
    Row{Word::kDiscard, "Discard", "Descartar"},
    Row{Word::kKindError, "error", "error"},
    Row{Word::kKindMarked, "error", "error"},
    Row{Word::kKindWarning, "warning", "aviso"},
    Row{Word::kKindFatal, "fatal error", "error fatal"},
    Row{Word::kKindConfirm, "to be confirmed", "por confirmar"},
    Row{Word::kErrorSign, "Errors: %1, %2", "Errores: %1, %2"},
    Row{Word::kErrorStays, "The error stays: its window says what it needs",
        "El error permanece: su ventana dice qué necesita"},
    Row{Word::kCloseAsked, "The control asks to close the panel after this error. Close it?",
        "El control pide cerrar el panel tras este error. ¿Cerrarlo?"},
    Row{Word::kClosePanel, "Close the panel", "Cerrar el panel"},
    Row{Word::kKeepRunning, "Keep it open", "Dejarlo abierto"},
    Row{Word::kToggleErrors, "Error window away, and back", "Ventana de errores fuera, y de vuelta"},
    Row{Word::kErrorListTitle, "Errors of this session", "Errores de esta sesión"},
    Row{Word::kErrorListEmpty, "No error has come yet", "Aún no ha llegado ningún error"},
    Row{Word::kErrorWithoutText, "no text", "sin texto"},
    Row{Word::kErrorParameters, "parameters %1", "parámetros %1"},
    Row{Word::kErrorChannel, "channel %1", "canal %1"},
    Row{Word::kErrorSource, "source %1", "origen %1"},
    Row{Word::kErrorId, "ID %1", "ID %1"},
    Row{Word::kErrorTimes, "%1 times since %2", "%1 veces desde %2"},
    Row{Word::kErrorStanding, "standing", "pendiente"},
    Row{Word::kErrorAcknowledged, "acknowledged", "reconocido"},
    Row{Word::kErrorConfirmed, "confirmed", "confirmado"},
    Row{Word::kErrorCleared, "cleared", "borrado"},
    Row{Word::kErrorsLeftOut, "Older errors that are not shown: %1", "Errores más antiguos que no se muestran: %1"},
    Row{Word::kErrorsLeftOutStanding, "Older errors that are not shown: %1, of which %2 still stand",
        "Errores más antiguos que no se muestran: %1, de ellos %2 pendientes"},
    Row{Word::kErrorFlood, "Flood: %1 errors in the last ten minutes",
        "Avalancha: %1 errores en los últimos diez minutos"},
    Row{Word::kDemoFaults, "Demo faults", "Fallos demo"},
    Row{Word::kFaultDoor, "Door open", "Puerta abierta"},
    Row{Word::kFaultDriveWarning, "Drive warning", "Aviso de regulador"},
    Row{Word::kFaultDrive, "Drive fault", "Fallo de regulador"},
    Row{Word::kFaultBus, "Bus fault", "Fallo de bus"},
    Row{Word::kFaultProgramLine, "Program line", "Línea de programa"},
    Row{Word::kFaultConfirm, "To confirm", "Por confirmar"},
    Row{Word::kFaultFatal, "Fatal", "Fatal"},
    Row{Word::kFaultEmergencyStop, "Emergency stop", "Parada de emergencia"},
    Row{Word::kFaultNeedsProgram, "Open or save a program first: the fault lies in its file",
        "Abra o guarde antes un programa: el fallo está en su fichero"},
    Row{Word::kCredentialsAsked, "Name and password for the server %1", "Nombre y contraseña para el servidor %1"},
    Row{Word::kCredentialsWrong, "The server refuses them: the name or the password is wrong",
        "El servidor los rechaza: el nombre o la contraseña no es correcto"},
    Row{Word::kUserName, "User name", "Usuario"},
    Row{Word::kUserDomain, "Domain, if any", "Dominio, si hay"},
    Row{Word::kConnect, "Connect", "Conectar"},
    Row{Word::kEnterKey, "Enter", "Intro"},
    Row{Word::kInsertKey, "Insert", "Insertar"},
    Row{Word::kTouchKeyboard, "Keyboard", "Teclado"},
    Row{Word::kOtherLanguage, "Español", "English"},
    Row{Word::kNoLanguage, "This language is not installed", "Este idioma no está instalado"},
};
static_assert(kWords.size() == static_cast<std::size_t>(Word::kCount), "every word has its row");

/// Say finds a row by its place, so a misplaced row would show the wrong text.
constexpr bool InOrder() {
  for (std::size_t i = 0; i < kWords.size(); ++i) {
    if (static_cast<std::size_t>(kWords[i].word) != i) return false;
  }
  return true;
}
static_assert(InOrder(), "the rows stand in the order of the words");

int inUse = 0;

}  // namespace

void UseWords(const QString& language) { inUse = language == QLatin1String("es") ? 1 : 0; }

QString WordsInUse() { return inUse == 1 ? QStringLiteral("es") : QStringLiteral("en"); }

QString WordIn(Word word, int language) {
  const Row& row = kWords[static_cast<std::size_t>(word)];
  return QString::fromUtf8(language == 1 ? row.spanish : row.english);
}

QString Say(Word word) { return WordIn(word, inUse); }

QString Say(Word word, const QString& argument) { return Say(word).arg(argument); }

}  // namespace panel
