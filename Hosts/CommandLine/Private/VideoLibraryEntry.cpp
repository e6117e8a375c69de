#include "VideoLibrary.h"

extern "C" __attribute__((visibility("default"))) const Flitmark::FVideoLibrary* FlitmarkVideoLibrary()
{
	static constexpr Flitmark::FVideoLibrary Library{&Flitmark::Probe, &Flitmark::Burn, &Flitmark::Shot,
													 &Flitmark::DrawOverlay};
	return &Library;
}
