#include "Scene/VideoItem.h"

#include "Mpv/MpvRenderer.h"

#include <QGuiApplication>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QPointer>
#include <QQuickWindow>
#include <QQuickOpenGLUtils>

namespace Flitmark
{

namespace
{

void* FindOpenGlFunction(void*, const char* InName)
{
	QOpenGLContext* Context = QOpenGLContext::currentContext();
	return Context != nullptr ? reinterpret_cast<void*>(Context->getProcAddress(InName)) : nullptr;
}

FMpvSurface MakeSurface()
{
	FMpvSurface Surface;
	Surface.GetProcAddress = FindOpenGlFunction;
	if (const auto* X11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>())
	{
		Surface.X11Display = X11->display();
	}
	return Surface;
}

} // namespace

/** Lives on the scene's render thread, with its context current. */
class FVideoRenderer final : public QQuickFramebufferObject::Renderer
{
public:
	void synchronize(QQuickFramebufferObject* InItem) override
	{
		FVideoItem* Item = static_cast<FVideoItem*>(InItem);
		if (Item->Handle == Handle)
		{
			return;
		}
		Drawer.reset();
		Handle = Item->Handle;
		if (!Handle)
		{
			return;
		}
		const QPointer<FVideoItem> Weak(Item);
		std::string Error;
		Drawer = FMpvRenderer::Create(
			Handle, MakeSurface(),
			[Weak]
			{
				QMetaObject::invokeMethod(
					qGuiApp,
					[Weak]
					{
						if (Weak)
						{
							Weak->update();
						}
					},
					Qt::QueuedConnection);
			},
			Error);
		QMetaObject::invokeMethod(
			Item,
			[Item, bDraws = Drawer != nullptr, Reason = QString::fromStdString(Error)]
			{
				if (bDraws)
				{
					Q_EMIT Item->Ready();
				}
				else
				{
					Q_EMIT Item->Failed(Reason);
				}
			},
			Qt::QueuedConnection);
	}

	void render() override
	{
		if (Drawer)
		{
			const QOpenGLFramebufferObject* Target = framebufferObject();
			Drawer->Render(static_cast<int>(Target->handle()), Target->width(), Target->height());
			QQuickOpenGLUtils::resetOpenGLState();
		}
	}

private:
	std::shared_ptr<mpv_handle> Handle;
	std::unique_ptr<FMpvRenderer> Drawer;
};

FVideoItem::FVideoItem(QQuickItem* InParent)
	: QQuickFramebufferObject(InParent)
{
}

void FVideoItem::SetHandle(std::shared_ptr<mpv_handle> InHandle)
{
	Handle = std::move(InHandle);
	update();
}

QQuickFramebufferObject::Renderer* FVideoItem::createRenderer() const
{
	return new FVideoRenderer;
}

} // namespace Flitmark
