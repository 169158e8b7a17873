// SPDX-License-Identifier: MIT
#include "errors/error_composer.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/format.h"
#include "base/numbers.h"
#include "errors/error_diagnosis.h"
#include "errors/error_values.h"

namespace pnl {

namespace {

Text FieldOf(const ErrorRecord& record, const ErrorField& field) { return record.GetText(field.offset, field.size); }

std::int32_t IntOf(const ErrorRecord& record, const ErrorField& field) {
  return record.Get<std::int32_t>(field.offset);
}

Text IdLine(const ErrorRecord& record) {
  return Format(u"\nID: %s-%d", FieldOf(record, error_field::kModule), IntOf(record, error_field::kIdentifier));
}

Text ParameterText(const ErrorRecord& record, const ErrorSurroundings& around) {
  Text text;
  for (std::size_t i = 0; i < error_field::kParameterCount; ++i) {
    const auto parameter = record.Get<ErrorParameter>(error_field::kParametersOffset + i * sizeof(ErrorParameter));
    text += ComposeParameter(parameter, around.words, around.kapi);
  }
  for (std::size_t i = 0; i < error_field::kExtraValueCount; ++i) {
    const auto value = record.Get<ErrorValue>(error_field::kExtraValuesOffset + i * sizeof(ErrorValue));
    const Text valueText = ComposeValue(value);
    if (valueText.empty()) continue;
    text += u'\n';
    text += around.words(error_text::kValue);
    text += valueText;
  }
  return text;
}

/// The text from its second character on. The first one is a separator.
Text AfterSeparator(const Z7340ERRORINFO_ST& info) {
  const Text text = FieldText(info.text);
  return text.empty() ? text : text.substr(1);
}

/// A source outside the kernel: the word of its title, and the functions that return the texts of its warnings and of
/// its other errors.
struct DriveRow {
  std::int32_t source;
  int word;
  ErrorTextFunction warning;
  ErrorTextFunction error;
  DescriptionTrim trim;
};

constexpr std::array kDriveRows{
    DriveRow{error_source::kDrive, error_text::kDrive, ErrorTextFunction::kWarningDrive, ErrorTextFunction::kErrorDrive,
             DescriptionTrim::kLeadingBlank},
    DriveRow{error_source::kMechatrolink, error_text::kDrive, ErrorTextFunction::kWarningDrive,
             ErrorTextFunction::kErrorMlink, DescriptionTrim::kLeadingBlank},
    DriveRow{error_source::kUnknownDrive, error_text::kDrive, ErrorTextFunction::kWarningUnknownDrive,
             ErrorTextFunction::kErrorUnknownDrive, DescriptionTrim::kNone},
    DriveRow{error_source::kFieldBus, error_text::kBus, ErrorTextFunction::kWarningCs, ErrorTextFunction::kErrorCs,
             DescriptionTrim::kFirstCharacter},
};

const DriveRow* DriveRowOf(std::int32_t source) {
  const auto row = std::find_if(kDriveRows.begin(), kDriveRows.end(),
                                [source](const DriveRow& candidate) { return candidate.source == source; });
  return row == kDriveRows.end() ? nullptr : &*row;
}

/// A description that consists of one text.
ErrorDescription Whole(Text text) {
  ErrorDescription parts;
  parts.codeLine = std::move(text);
  return parts;
}

class Composition {
 public:
  Composition(const ErrorRecord& record, const ErrorSurroundings& around)
      : record_(record),
        around_(around),
        source_(IntOf(record, error_field::kSource)),
        number_(IntOf(record, error_field::kNumber)) {
    result_.errorClass = ClassifyError(record);
  }

  ComposedError Run() {
    if (source_ == error_source::kPlc) {
      ComposePlc();
    } else if (const DriveRow* row = DriveRowOf(source_)) {
      ComposeDrive(*row);
    } else if (source_ == error_source::kCanOpen) {
      ComposeCanOpen();
    } else {
      ComposeKernel();
    }
    return std::move(result_);
  }

 private:
  TextView KernelWord() const {
    return around_.words(result_.errorClass == ErrorClass::kWarning ? error_text::kWarning : error_text::kError);
  }

  void Ask(ErrorTextFunction function, std::int32_t number) {
    around_.utilities.ErrorText(function, number, result_.info);
  }

  void SetWord(TextView word) {
    result_.titleWord = word;
    result_.boxText = ComposeBoxText(word, &record_);
  }

  void ComposePlc() {
    SetWord(around_.words(error_text::kPlcError));
    Ask(ErrorTextFunction::kReadPlcError, number_);
    // The whole text with its first character, which in the texts of other sources is a separator.
    result_.titleLine = FieldText(result_.info.text);
    Text text;
    result_.hasDescription = ReadHelp(FieldText(result_.info.helpRef), around_.files, around_.utilities, text);
    if (!result_.hasDescription) result_.info.hasHelp = 0;
    result_.parts = Whole(std::move(text));
  }

  void ComposeDrive(const DriveRow& row) {
    SetWord(around_.words(row.word));
    Ask(result_.errorClass == ErrorClass::kWarning ? row.warning : row.error, number_);
    if (source_ == error_source::kUnknownDrive) {
      result_.boxText = ComposeBoxText(result_.titleWord, nullptr);
      result_.titleLine = Format(u"ERROR : %X", number_);
      result_.parts = Whole(AfterSeparator(result_.info));
      return;
    }
    result_.titleLine = AfterSeparator(result_.info);
    Describe(row.trim);
  }

  void ComposeCanOpen() {
    SetWord(KernelWord());
    result_.boxText = ComposeBoxText(around_.words(error_text::kCanOpen), &record_);
    Ask(ErrorTextFunction::kEmcyCopen, record_.Get<std::int32_t>(error_field::kEmergencyCodeOffset));
    result_.titleLine = AfterSeparator(result_.info);
    Describe(DescriptionTrim::kFirstCharacter);
  }

  void ComposeKernel() {
    SetWord(KernelWord());
    if (source_ == error_source::kOwnText) {
      result_.titleLine = WithoutLeadingLineFeed(FieldOf(record_, error_field::kMessageText));
    } else {
      // The error of a script brings its own title. It is asked for too, because the answer has the help reference.
      Ask(ErrorTextFunction::kErrorToTxt, number_);
      result_.titleLine = source_ == error_source::kScript
                              ? Text(WithoutLeadingLineFeed(FieldOf(record_, error_field::kScriptText)))
                              : AfterSeparator(result_.info);
    }
    DescribeKernel();
    const int channels = around_.kapi.ChannelNumber();
    const int channel = ChannelOf(record_);
    result_.showChannel = channel >= 1 && channel <= channels && channels != 1;
    result_.logIt = result_.errorClass == ErrorClass::kFatal || result_.errorClass == ErrorClass::kConfirm;
  }

  void DescribeKernel() {
    const Text message = FieldOf(record_, error_field::kMessageText);
    if (source_ == error_source::kTextBelow) {
      result_.parts = Whole(Format(u"%s  %s", around_.words(error_text::kText), message) + IdLine(record_));
    } else if (source_ == error_source::kTextAlone) {
      result_.parts = Whole(Text(WithoutLeadingLineFeed(message)));
    } else {
      Describe(DescriptionTrim::kLeadingBlank);
    }
  }

  void Describe(DescriptionTrim trim) {
    result_.parts = ComposeDescription(record_, around_);
    result_.trim = trim;
    // Only a description with a path names a file from which lines can be read.
    result_.inProgram = !result_.parts.pathLine.empty();
    if (result_.inProgram) result_.place = ProgramPlaceOf(record_);
  }

  const ErrorRecord& record_;
  const ErrorSurroundings& around_;
  const std::int32_t source_;
  const std::int32_t number_;
  ComposedError result_;
};

}  // namespace

Text ErrorDescription::Joined() const {
  return diagnosis + diagnosisCaption + parameterText + pathLine + lineNumber + lineText + idLine + codeLine;
}

Text ComposedError::Description() const {
  Text text = parts.Joined();
  if (trim == DescriptionTrim::kLeadingBlank) return TrimLeadingBlank(std::move(text));
  if (trim == DescriptionTrim::kFirstCharacter && !text.empty()) text.erase(0, 1);
  return text;
}

Text ComposedError::LogText() const { return boxText + u" : " + titleLine; }

ComposedError ComposeError(const ErrorRecord& record, const ErrorSurroundings& around) {
  return Composition(record, around).Run();
}

Text ComposeBoxText(TextView word, const ErrorRecord* record) {
  Text upper = ToUpper(word);
  const std::int32_t number = record == nullptr ? 0 : IntOf(*record, error_field::kNumber);
  if (number == 0) return upper;
  const bool hex = IntOf(*record, error_field::kSource) == error_source::kMechatrolink;
  return Format(hex ? u"%s 0x%x" : u"%s %d", upper, number);
}

ErrorDescription ComposeDescription(const ErrorRecord& record, const ErrorSurroundings& around) {
  ErrorDescription parts;
  const std::int32_t source = IntOf(record, error_field::kSource);
  const Text message = FieldOf(record, error_field::kMessageText);
  const bool script = source == error_source::kScript;
  if (script && message.empty() && IntOf(record, error_field::kScriptState) == -1) {
    parts.idLine = IdLine(record);
    return parts;
  }
  if (source == error_source::kOwnText) {
    parts.lineText = Format(u"\n%s", FieldOf(record, error_field::kExtraText));
    parts.idLine = IdLine(record);
    return parts;
  }
  if (!script) {
    parts.idLine = IdLine(record);
    parts.parameterText = ParameterText(record, around);
  }
  if (script || source == error_source::kProgram) {
    parts.pathLine = ComposePathLine(ProgramPlaceOf(record).path, around.words, around.widths);
  }
  if (source == error_source::kPreparation) {
    parts.diagnosis = ComposeDiagnosis(record, around.words, around.kapi);
    parts.diagnosisCaption = Format(u"\n%s %s", around.words(error_text::kCause), message);
  }
  if (source == error_source::kPartner) {
    parts.codeLine =
        Format(u"\nCode: %d \nPartner: %d", IntOf(record, error_field::kCode), IntOf(record, error_field::kPartner));
  }
  return parts;
}

bool ReadHelp(TextView helpRef, const Files& files, Utilities& utilities, Text& text) {
  const auto reference = ParseHelpReference(helpRef);
  return reference && files.Query(reference->file).exists &&
         utilities.desc_to_txt(reference->number, text, reference->file);
}

Text TrimLeadingBlank(Text text) {
  if (text.starts_with(u" \n")) text.erase(0, 1);
  return text;
}

TextView WithoutLeadingLineFeed(TextView text) {
  if (!text.empty() && text[0] == u'\n') text.remove_prefix(1);
  return text;
}

}  // namespace pnl
