// The scenario commands for the Assign Functions dialog: `dialog ...` acts on it as a pilot would,
// `expect dialog ...` reads what its widgets show.
#pragma once

#include "dravsim/CommandTable.h"
#include "ui/AssignDialog.h"

namespace dravsim {

// Where the commands find the dialog's widgets: the plug-in's dialog unless a test puts a stand-in
// of its own (null: the plug-in's again).
using DialogWidgetSource = bool (*)(drav::AssignDialogWidgets& out);
void SetDialogWidgetSource(DialogWidgetSource source);

void DialogCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectDialogCommand(ScenarioContext& ctx, const Invocation& call);

}  // namespace dravsim
