#include "VideoLibrary.h"

#include <dlfcn.h>
#include <string>
#include <string_view>

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
		const std::string_view Cause = Reason != nullptr ? Reason : "the reason is unknown";
		// Memory and descriptors run out, too, on the way to the libraries that it needs.
		const bool bMissing = Cause.find("No such file") != std::string_view::npos ||
							  Cause.find("undefined symbol") != std::string_view::npos;
		OutError = Path + ": cannot be loaded: " + std::string(Cause) +
				   (bMissing ? "; reinstall flitmark" : "; a limit on memory or open files may be in the way");
		return nullptr;
	}
	return reinterpret_cast<const FVideoLibrary* (*)()>(Entry)();
}

} // namespace Flitmark
