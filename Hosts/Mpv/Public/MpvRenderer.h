#pragma once

#include <functional>
#include <memory>
#include <string>

struct mpv_handle;
struct mpv_render_context;

namespace Flitmark
{

class FMpvPlayer;

/** What the renderer needs of the window system. */
struct FMpvSurface
{
	/** OpenGL's functions by name. */
	void* (*GetProcAddress)(void* InContext, const char* InName) = nullptr;
	void* Context = nullptr;

	/** The X11 display where there is one: lets hardware decoders hand frames over without a copy. */
	void* X11Display = nullptr;
};

/** Draws the player's picture with OpenGL. Made, used and destroyed on the thread that has the context current. */
class FMpvRenderer
{
public:
	/** Null with OutError set. InOnFrame is called from any thread when a new picture is there. */
	static std::unique_ptr<FMpvRenderer> Create(std::shared_ptr<mpv_handle> InHandle, const FMpvSurface& InSurface,
												std::function<void()> InOnFrame, std::string& OutError);
	~FMpvRenderer();

	/** Into a framebuffer object of that many pixels, letterboxed. Its first row of texels is the top of the picture. */
	void Render(int InFramebuffer, int InWidth, int InHeight);

private:
	explicit FMpvRenderer(std::shared_ptr<mpv_handle> InHandle, std::function<void()> InOnFrame);

	/** Before the context, which has to go first. */
	std::shared_ptr<mpv_handle> Handle;
	std::function<void()> OnFrame;
	mpv_render_context* Context = nullptr;
};

} // namespace Flitmark
