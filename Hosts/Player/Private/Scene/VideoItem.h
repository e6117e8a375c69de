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

	/** The player whose picture it shows; kept alive until the scene has released it. */
	void SetHandle(std::shared_ptr<mpv_handle> InHandle);

	Renderer* createRenderer() const override;

Q_SIGNALS:
	/** The player can draw from now on. */
	void Ready();
	/** The picture can't be drawn; InReason: without a final period. */
	void Failed(const QString& InReason);

private:
	friend class FVideoRenderer;

	std::shared_ptr<mpv_handle> Handle;
};

} // namespace Flitmark
