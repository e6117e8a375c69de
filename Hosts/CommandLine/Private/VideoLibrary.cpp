#include "VideoLibrary.h"

#include <dlfcn.h>
#include <string>

namespace Flitmark
{

const FVideoLibrary* LoadVideoLibrary(std::string& OutError)
{
	// Found through the run path, like the program's other libraries.
	const std::string Path = FLITMARK_VIDEO_LIBRARY;
	// Never closed: its functions and its threads' data stay in use until the program ends.
	void* const Library = dlopen(Path.c_str(), RTLD_NOW | RTLD_LOCAL);
	void* const Entry = Library != nullptr ? dlsym(Library, "FlitmarkVideoLibrary") : nullptr;
	if (Entry == nullptr)
	{
		const char* const Reason = dlerror();
		OutError = Path + ": cannot be loaded: " + (Reason != nullptr ? Reason : "the reason is unknown") +
				   "; reinstall flitmark";
		return nullptr;
	}
	return reinterpret_cast<const FVideoLibrary* (*)()>(Entry)();
}

} // namespace Flitmark
