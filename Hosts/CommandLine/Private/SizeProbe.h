#pragma once

#include "Stage/Stage.h"

#include <map>
#include <memory>
#include <string>
#include <utility>

namespace Flitmark
{

/**
 * Finds the font sizes that fit a canvas by asking the overlay itself: a stage of its own places one comment after the
 * other. No other stage may exist meanwhile.
 */
class FSizeProbe
{
public:
	/** Null with OutError set where no stage can be built. InMeasure outlives this. */
	static std::unique_ptr<FSizeProbe> Create(FVector2f InCanvasSize, FSlateFontMeasure& InMeasure,
											  std::string& OutError);

	/**
	 * The largest font size at which a comment of that mode with InLines lines is shown on the empty canvas; 0 where none
	 * is.
	 */
	int32 GetLargest(int32 InMode, int32 InLines);

	FVector2f GetCanvasSize() const { return Stage->GetCanvasSize(); }

private:
	explicit FSizeProbe(std::unique_ptr<FStage> InStage)
		: Stage(std::move(InStage))
	{
	}
	bool IsShown(int32 InMode, int32 InLines, int32 InSize);

	std::unique_ptr<FStage> Stage;
	std::map<std::pair<int32, int32>, int32> Known;
	/** The second in which the last comment tried was due; the next one is due in the other. */
	int64 Second = 0;
};

} // namespace Flitmark
