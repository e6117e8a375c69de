#pragma once

#include "Mpv/MpvPlayer.h"

#include <QObject>
#include <QString>

#include <memory>
#include <optional>
#include <string>

namespace Flitmark
{

/** Finds out whether something can be played, up to its first picture or sound, while something else plays on. One at a time. */
class FMediaTrial final : public QObject, private IMpvObserver
{
	Q_OBJECT

public:
	/** InVideo: a path or an address. Ends with one of the signals, unless canceled; a new trial cancels the last. */
	void Start(const QString& InVideo);
	void Cancel();

Q_SIGNALS:
	void Succeeded();
	/** InReason: libmpv's, without a period. */
	void Failed(const QString& InReason);

private:
	void Process();

	void OnStateChanged() override;
	void OnLoaded() override {}
	void OnFailed(const std::string& InReason) override { Outcome = InReason; }
	void OnSeeked() override {}

	std::unique_ptr<FMpvPlayer> Mpv;
	/** Why it can't be played; empty if it can. */
	std::optional<std::string> Outcome;
};

} // namespace Flitmark
