// SPDX-License-Identifier: MIT
// The method for the trace, and the table of all methods.
#include "remote/methods.h"

namespace panel {

namespace {

RpcResult TraceTake(RemoteWorld& world, Params& params) {
  const QStringList kinds = params.Texts("kinds", TraceLog::Kinds());
  for (const QString& kind : kinds) {
    if (!TraceLog::Kinds().contains(kind)) {
      params.Fail("kinds", "\"" + TraceLog::Kinds().join("\", \"") + "\" are there");
    }
  }
  if (params.Problem()) return *params.Problem();
  return QJsonValue(QJsonObject{{"events", world.trace.Take(kinds)}});
}

}  // namespace

void AddTraceMethods(MethodTable& table) { table.insert("trace.take", TraceTake); }

MethodTable AllMethods() {
  MethodTable table;
  for (const auto add : {AddHostMethods, AddCncMethods, AddErrorMethods, AddStorageMethods, AddWindowMethods,
                         AddControlMethods, AddGridMethods, AddTraceMethods}) {
    add(table);
  }
  return table;
}

}  // namespace panel
