#include "VideoLibrary.h"

#include <dlfcn.h>
#include <filesystem>

namespace Flitmark
{

const FVideoLibrary* LoadVideoLibrary(std::string& OutError)
{
	std::error_code Ignored;
	const std::filesystem::path Folder = std::filesystem::read_symlink("/proc/self/exe", Ignored).parent_path();
	const std::string Path = (Folder / FLITMARK_VIDEO_LIBRARY).string();
	// Never closed: its functions and its threads' data stay in use until the program ends.
	void* const Library = dlopen(Path.c_str(), RTLD_NOW | RTLD_LOCAL);
	void* const Entry = Library != nullptr ? dlsym(Library, "FlitmarkVideoLibrary") : nullptr;
	if (Entry == nullptr)
	{
		const char* const Reason = dlerror();
		OutError = Path + ": cannot be loaded: " + (Reason != nullptr ? Reason : "no reason is known") +
				   "; install the program anew";
		return nullptr;
	}
	return reinterpret_cast<const FVideoLibrary* (*)()>(Entry)();
}

} // namespace Flitmark
