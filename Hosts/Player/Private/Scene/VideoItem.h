#pragma once

#include <QQuickFramebufferObject>

#include <memory>
#include <qqmlintegration.h>

struct mpv_handle;

namespace Flitmark
{

/** The video's picture in the scene, letterboxed into the item. */
class FVideoItem : public QQuickFramebufferObject
{
	Q_OBJECT
	QML_NAMED_ELEMENT(VideoItem)

public:
	explicit FVideoItem(QQuickItem* InParent = nullptr);

	/** Whose picture; kept alive until the scene has let go of it. */
	void SetHandle(std::shared_ptr<mpv_handle> InHandle);

	Renderer* createRenderer() const override;

Q_SIGNALS:
	/** The player can draw from now on. */
	void Ready();
	/** The picture cannot be drawn; InReason: without an end stop. */
	void Failed(const QString& InReason);

private:
	friend class FVideoRenderer;

	std::shared_ptr<mpv_handle> Handle;
};

} // namespace Flitmark
