#include "Mpv/MpvRenderer.h"

#include <mpv/client.h>
#include <mpv/render_gl.h>

#include <utility>
#include <vector>

namespace Flitmark
{

FMpvRenderer::FMpvRenderer(std::shared_ptr<mpv_handle> InHandle, std::function<void()> InOnFrame)
	: Handle(std::move(InHandle))
	, OnFrame(std::move(InOnFrame))
{
}

std::unique_ptr<FMpvRenderer> FMpvRenderer::Create(std::shared_ptr<mpv_handle> InHandle, const FMpvSurface& InSurface,
												   std::function<void()> InOnFrame, std::string& OutError)
{
	std::unique_ptr<FMpvRenderer> Renderer(new FMpvRenderer(std::move(InHandle), std::move(InOnFrame)));
	char Api[] = MPV_RENDER_API_TYPE_OPENGL;
	mpv_opengl_init_params OpenGl{};
	OpenGl.get_proc_address = InSurface.GetProcAddress;
	OpenGl.get_proc_address_ctx = InSurface.Context;
	std::vector<mpv_render_param> Params{{MPV_RENDER_PARAM_API_TYPE, Api},
										 {MPV_RENDER_PARAM_OPENGL_INIT_PARAMS, &OpenGl}};
	if (InSurface.X11Display != nullptr)
	{
		Params.push_back({MPV_RENDER_PARAM_X11_DISPLAY, InSurface.X11Display});
	}
	Params.push_back({MPV_RENDER_PARAM_INVALID, nullptr});
	if (const int Error = mpv_render_context_create(&Renderer->Context, Renderer->Handle.get(), Params.data());
		Error < 0)
	{
		OutError = std::string("the video cannot be drawn: ") + mpv_error_string(Error);
		return nullptr;
	}
	mpv_render_context_set_update_callback(
		Renderer->Context, [](void* InRenderer) { static_cast<FMpvRenderer*>(InRenderer)->OnFrame(); }, Renderer.get());
	return Renderer;
}

FMpvRenderer::~FMpvRenderer()
{
	if (Context != nullptr)
	{
		mpv_render_context_set_update_callback(Context, nullptr, nullptr);
		mpv_render_context_free(Context);
	}
}

void FMpvRenderer::Render(int InFramebuffer, int InWidth, int InHeight)
{
	mpv_opengl_fbo Target{InFramebuffer, InWidth, InHeight, 0};
	// The scene must not wait for the video's next frame: comments move on with the display.
	int Wait = 0;
	mpv_render_param Params[] = {{MPV_RENDER_PARAM_OPENGL_FBO, &Target},
								 {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &Wait},
								 {MPV_RENDER_PARAM_INVALID, nullptr}};
	mpv_render_context_render(Context, Params);
}

} // namespace Flitmark
