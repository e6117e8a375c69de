#pragma once

#include <QObject>
#include <QTimer>

#include <optional>

namespace Flitmark
{

/**
 * Seeks one at a time: while one is under way, only the latest further wish is kept, so that dragging asks for no more
 * than the decoder can follow. Positions in seconds.
 */
class FSeekControl final : public QObject
{
	Q_OBJECT

public:
	/** InPatience: milliseconds after which a seek of which nothing is heard counts as finished. */
	explicit FSeekControl(int InPatience = 5'000);

	/** bInExact: to the very frame, else to where decoding is quick. */
	void Seek(double InPosition, bool bInExact);
	/** The seek under way has arrived; the one kept, if any, starts. */
	void Finish();
	/** Forgets both. */
	void Cancel();

	/** Where the viewer wants to be; empty where nothing is under way. */
	std::optional<double> GetTarget() const;

Q_SIGNALS:
	/** To be carried out now. */
	void Started(double InPosition, bool bInExact);
	void TargetChanged();

private:
	struct FSeek
	{
		double Position = 0.0;
		bool bExact = true;
	};

	std::optional<FSeek> Current;
	std::optional<FSeek> Next;
	QTimer Timer;
};

} // namespace Flitmark
