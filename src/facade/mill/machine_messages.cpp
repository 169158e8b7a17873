// SPDX-License-Identifier: MIT
#include "facade/mill/machine_messages.h"

namespace pnl::sim {

namespace {

constexpr std::int32_t kMessage = 0;
constexpr std::int32_t kError = 1;
constexpr unsigned kTypeShift = 28;
constexpr std::uint32_t kIdentifierBits = (1u << kTypeShift) - 1;

// clang-format off
constexpr PlcMessage kMessages[] = {
    {kMessage, 1, u"Coolant level low",              u"Nivel de refrigerante bajo",         u"coolant.htm"},
    {kMessage, 2, u"Clamp the workpiece",            u"Amarre la pieza",                    u"clamp.gif"},
    {kMessage, 3, u"Change the tool by hand",        u"Cambie la herramienta a mano",       u"toolchange.avi"},
    {kMessage, 4, u"Weekly maintenance is due",      u"Mantenimiento semanal pendiente",    u"maintenance.txt"},
    {kError,   1, u"Safety door open",               u"Puerta de seguridad abierta",        u"messages.txt#1"},
    {kError,   2, u"Air pressure too low",           u"Presión de aire demasiado baja",     u"air.html"},
    {kError,   3, u"Chip conveyor blocked",          u"Extractor de virutas bloqueado",     u"chips.bmp"},
    {kError,   4, u"Lubrication tank empty",         u"Depósito de engrase vacío",          u"lubrication.jpg"},
};
// clang-format on

}  // namespace

std::span<const PlcMessage> PlcMessages() { return kMessages; }

std::uint32_t CodeOf(const PlcMessage& message) {
  return static_cast<std::uint32_t>(message.type) << kTypeShift |
         (static_cast<std::uint32_t>(message.id) & kIdentifierBits);
}

}  // namespace pnl::sim
