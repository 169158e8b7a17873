// SPDX-License-Identifier: MIT
#include "pages/page_tags.h"

#include <algorithm>
#include <iterator>

namespace pnl {
namespace {

using Kind = TagKind;

// In the order of their names.
constexpr TagRow kTags[] = {
    {u"a", Kind::kInline},         {u"abbr", Kind::kInline},    {u"address", Kind::kBlock},
    {u"applet", Kind::kSkipped},   {u"b", Kind::kInline},       {u"big", Kind::kInline},
    {u"blockquote", Kind::kBlock}, {u"body", Kind::kBlock},     {u"br", Kind::kVoid},
    {u"caption", Kind::kBlock},    {u"center", Kind::kBlock},   {u"cite", Kind::kInline},
    {u"code", Kind::kInline},      {u"dd", Kind::kItem},        {u"dfn", Kind::kInline},
    {u"div", Kind::kBlock},        {u"dl", Kind::kList},        {u"dt", Kind::kItem},
    {u"em", Kind::kInline},        {u"embed", Kind::kSkipped},  {u"font", Kind::kInline},
    {u"h1", Kind::kBlock},         {u"h2", Kind::kBlock},       {u"h3", Kind::kBlock},
    {u"h4", Kind::kBlock},         {u"h5", Kind::kBlock},       {u"h6", Kind::kBlock},
    {u"head", Kind::kBlock},       {u"hr", Kind::kVoid},        {u"html", Kind::kBlock},
    {u"i", Kind::kInline},         {u"iframe", Kind::kSkipped}, {u"img", Kind::kVoid},
    {u"kbd", Kind::kInline},       {u"li", Kind::kItem},        {u"link", Kind::kVoid},
    {u"math", Kind::kSkipped},     {u"nobr", Kind::kInline},    {u"noframes", Kind::kSkipped},
    {u"object", Kind::kSkipped},   {u"ol", Kind::kList},        {u"p", Kind::kBlock},
    {u"pre", Kind::kBlock},        {u"s", Kind::kInline},       {u"samp", Kind::kInline},
    {u"script", Kind::kSkipped},   {u"small", Kind::kInline},   {u"span", Kind::kInline},
    {u"strong", Kind::kInline},    {u"style", Kind::kStyle},    {u"sub", Kind::kInline},
    {u"sup", Kind::kInline},       {u"svg", Kind::kSkipped},    {u"table", Kind::kTable},
    {u"tbody", Kind::kSection},    {u"td", Kind::kCell},        {u"template", Kind::kSkipped},
    {u"textarea", Kind::kSkipped}, {u"tfoot", Kind::kSection},  {u"th", Kind::kCell},
    {u"thead", Kind::kSection},    {u"title", Kind::kSkipped},  {u"tr", Kind::kRow},
    {u"tt", Kind::kInline},        {u"u", Kind::kInline},       {u"ul", Kind::kList},
    {u"var", Kind::kInline},       {u"xml", Kind::kSkipped},
};

// In the order of their names.
constexpr AttributeRow kAttributes[] = {
    {u"align", ValueKind::kText},   {u"alt", ValueKind::kText},          {u"bgcolor", ValueKind::kText},
    {u"border", ValueKind::kSmall}, {u"cellpadding", ValueKind::kSmall}, {u"cellspacing", ValueKind::kSmall},
    {u"class", ValueKind::kText},   {u"color", ValueKind::kText},        {u"colspan", ValueKind::kSpan},
    {u"dir", ValueKind::kText},     {u"face", ValueKind::kText},         {u"height", ValueKind::kLength},
    {u"href", ValueKind::kAddress}, {u"id", ValueKind::kText},           {u"media", ValueKind::kText},
    {u"name", ValueKind::kText},    {u"rel", ValueKind::kText},          {u"rowspan", ValueKind::kSpan},
    {u"size", ValueKind::kSmall},   {u"src", ValueKind::kPicture},       {u"start", ValueKind::kLength},
    {u"style", ValueKind::kCss},    {u"title", ValueKind::kText},        {u"type", ValueKind::kText},
    {u"valign", ValueKind::kText},  {u"width", ValueKind::kLength},
};

/// Binary search in a table that is in the order of its names.
template <typename Row, std::size_t count>
const Row* Find(const Row (&table)[count], TextView name) {
  const auto* const row = std::lower_bound(std::begin(table), std::end(table), name,
                                           [](const Row& left, TextView right) { return left.name < right; });
  return row != std::end(table) && row->name == name ? row : nullptr;
}

}  // namespace

const TagRow* FindTag(TextView name) { return Find(kTags, name); }

const AttributeRow* FindAttribute(TextView name) { return Find(kAttributes, name); }

}  // namespace pnl
