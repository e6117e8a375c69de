#pragma once

#include <QQuickItem>
#include <QTimer>

#include <qqmlintegration.h>

namespace Flitmark
{

class FOverlay;

/**
 * The comments in the scene, over the item's whole rectangle. Whoever runs the overlay's frames calls update() after
 * each; the layer itself requests a frame when sprites have been made.
 */
class FCommentLayer : public QQuickItem
{
	Q_OBJECT
	QML_NAMED_ELEMENT(CommentLayer)
	/** How far to raise bottom comments, in logical pixels, above whatever covers the item's lower edge. */
	Q_PROPERTY(double lift READ GetLift WRITE SetLift NOTIFY LiftChanged)

public:
	explicit FCommentLayer(QQuickItem* InParent = nullptr);
	~FCommentLayer() override;

	/**
	 * The overlay to draw, which is told the item's size and its screen's scale and refresh rate. Set it to null before
	 * the overlay is destroyed.
	 */
	void SetOverlay(FOverlay* InOverlay);
	double GetLift() const { return Lift; }
	void SetLift(double InLift);

Q_SIGNALS:
	void LiftChanged();

protected:
	QSGNode* updatePaintNode(QSGNode* InNode, UpdatePaintNodeData* InData) override;
	void geometryChange(const QRectF& InNew, const QRectF& InOld) override;
	void itemChange(ItemChange InChange, const ItemChangeData& InData) override;

private:
	void LetGo();
	void TellView();
	void TellRefreshRate();
	void Settle();

	FOverlay* Overlay = nullptr;
	double Lift = 0.0;
	QMetaObject::Connection ScreenChanged;

	/** Device pixels per canvas unit at which sprites are made; 0 before the first view. */
	double RasterScale = 0.0;
	/** Runs while the size changes, so that sprites are not made for every step of it. */
	QTimer SettleTimer;
};

} // namespace Flitmark
