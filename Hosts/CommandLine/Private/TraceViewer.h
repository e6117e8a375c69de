#pragma once

#include "JsonLine.h"
#include "Stage/Stage.h"
#include "TraceScript.h"

namespace Flitmark
{

/** Does to the stage's bar and panel what a script's line has the viewer do. */
void ActAsViewer(const FTraceStep& InStep, FStage& InOutStage);

/** Adds to a report what the viewer sees of canvas, bar, panel and preferences. */
void AddViewerState(FJsonLine& InOutLine, const FStage& InStage);

} // namespace Flitmark
