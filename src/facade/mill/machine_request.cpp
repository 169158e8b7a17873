// SPDX-License-Identifier: MIT
#include "facade/mill/machine_request.h"

#include "base/format.h"

namespace pnl::sim {

namespace {

struct CodeEntry {
  char16_t letter;
  int written;
  int code;
  Group group;
};
// clang-format off
constexpr CodeEntry kCodes[] = {
    {u'G', 0, 0, Group::kMotion},      {u'G', 1, 1, Group::kMotion},      {u'G', 2, 2, Group::kMotion},
    {u'G', 3, 3, Group::kMotion},      {u'G', 4, 4, Group::kDwell},
    {u'G', 17, 17, Group::kPlane},     {u'G', 18, 18, Group::kPlane},     {u'G', 19, 19, Group::kPlane},
    {u'G', 20, 20, Group::kUnits},     {u'G', 21, 21, Group::kUnits},
    {u'G', 70, 20, Group::kUnits},     {u'G', 71, 21, Group::kUnits},
    {u'G', 40, 40, Group::kRadius},    {u'G', 41, 41, Group::kRadius},    {u'G', 42, 42, Group::kRadius},
    {u'G', 43, 43, Group::kLength},    {u'G', 44, 44, Group::kLength},
    {u'G', 53, 53, Group::kMachineCoordinates},
    {u'G', 54, 54, Group::kOffset},    {u'G', 55, 55, Group::kOffset},    {u'G', 56, 56, Group::kOffset},
    {u'G', 57, 57, Group::kOffset},    {u'G', 58, 58, Group::kOffset},    {u'G', 59, 59, Group::kOffset},
    {u'G', 90, 90, Group::kDistance},  {u'G', 91, 91, Group::kDistance},
    {u'G', 94, 94, Group::kFeedMode},  {u'G', 95, 95, Group::kFeedMode},
    {u'G', 96, 96, Group::kSpeedMode}, {u'G', 97, 97, Group::kSpeedMode},
    {u'M', 0, 0, Group::kStop},        {u'M', 1, 1, Group::kStop},        {u'M', 2, 30, Group::kStop},
    {u'M', 30, 30, Group::kStop},
    {u'M', 3, 3, Group::kSpindle},     {u'M', 4, 4, Group::kSpindle},     {u'M', 5, 5, Group::kSpindle},
    {u'M', 6, 6, Group::kToolChange},
    {u'M', 7, 7, Group::kCoolant},     {u'M', 8, 8, Group::kCoolant},     {u'M', 9, 9, Group::kCoolant},
};
// clang-format on

constexpr TextView kLetters = u"XYZIJKRFSTDP";

const CodeEntry* FindCode(const Word& word) {
  for (const CodeEntry& entry : kCodes) {
    if (entry.letter == word.letter && entry.written == word.value) return &entry;
  }
  return nullptr;
}

std::size_t Index(Group group) { return static_cast<std::size_t>(group); }
std::size_t Index(char16_t letter) { return static_cast<std::size_t>(letter - u'A'); }

}  // namespace

const Choice* Request::Chosen(Group group) const {
  const std::optional<Choice>& choice = choices_[Index(group)];
  return choice ? &*choice : nullptr;
}

const Word* Request::Find(char16_t letter) const {
  const std::optional<Word>& word = letters_[Index(letter)];
  return word ? &*word : nullptr;
}

const Word* Request::First(TextView letters) const {
  const Word* first = nullptr;
  for (const char16_t letter : letters) {
    const Word* word = Find(letter);
    if (word != nullptr && (first == nullptr || word->begin < first->begin)) first = word;
  }
  return first;
}

std::optional<Fault> Request::Choose(const Word& word) {
  const CodeEntry* entry = FindCode(word);
  if (entry == nullptr) return FaultOf(word.letter == u'G' ? FaultCode::kUnknownG : FaultCode::kUnknownM, word);
  std::optional<Choice>& choice = choices_[Index(entry->group)];
  if (choice) return FaultOf(FaultCode::kSameGroup, word);
  choice = Choice{entry->code, word};
  return std::nullopt;
}

std::optional<Fault> Request::Add(const Word& word) {
  if (word.letter == u'G' || word.letter == u'M') return Choose(word);
  if (kLetters.find(word.letter) == TextView::npos) return FaultOf(FaultCode::kUnknownWord, word);
  std::optional<Word>& place = letters_[Index(word.letter)];
  if (place) return FaultOf(FaultCode::kWordTwice, word);
  place = word;
  return std::nullopt;
}

std::variant<Request, Fault> ReadRequest(const Block& block) {
  Request request;
  for (const Word& word : block.words) {
    if (std::optional<Fault> fault = request.Add(word)) return *fault;
  }
  return request;
}

Text Print(const Request& request) {
  Text line;
  for (std::size_t group = 0; group < kGroupCount; ++group) {
    const Choice* choice = request.Chosen(static_cast<Group>(group));
    if (choice != nullptr) line += Format(u"%c%02d ", choice->word.letter, choice->code);
  }
  for (const char16_t letter : kLetters) {
    const Word* word = request.Find(letter);
    if (word != nullptr) line += Format(u"%c%.10g ", letter, word->value);
  }
  if (!line.empty()) line.pop_back();
  return line;
}

}  // namespace pnl::sim
