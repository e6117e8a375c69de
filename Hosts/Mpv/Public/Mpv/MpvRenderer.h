#pragma once

#include <functional>
#include <memory>
#include <string>

struct mpv_handle;
struct mpv_render_context;

namespace Flitmark
{

class FMpvPlayer;

/** What the renderer needs from the window system. */
struct FMpvSurface
{
	/** Looks up OpenGL functions by name. */
	void* (*GetProcAddress)(void* InContext, const char* InName) = nullptr;
	void* Context = nullptr;

	/** The X11 display, if there is one: lets hardware decoders pass frames without a copy. */
	void* X11Display = nullptr;
};

/** Draws the player's picture with OpenGL. Create, use, and destroy it on the thread with the current context. */
class FMpvRenderer
{
public:
	/** Null with OutError set on failure. InOnFrame is called from any thread when a new picture is ready. */
	static std::unique_ptr<FMpvRenderer> Create(std::shared_ptr<mpv_handle> InHandle, const FMpvSurface& InSurface,
												std::function<void()> InOnFrame, std::string& OutError);
	~FMpvRenderer();

	/** Into a framebuffer object of that many pixels, letterboxed. Its first row of texels is the top of the picture. */
	void Render(int InFramebuffer, int InWidth, int InHeight);

private:
	explicit FMpvRenderer(std::shared_ptr<mpv_handle> InHandle, std::function<void()> InOnFrame);

	/** Declared before the context, which must be destroyed first. */
	std::shared_ptr<mpv_handle> Handle;
	std::function<void()> OnFrame;
	mpv_render_context* Context = nullptr;
};

} // namespace Flitmark
