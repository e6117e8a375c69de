#pragma once

#include <QQuickItem>
#include <QTimer>

#include <qqmlintegration.h>

namespace Flitmark
{

class FOverlay;

/**
 * The comments in the scene, over the item's whole rectangle. Whoever runs the overlay's frames calls update() after
 * each; the layer asks for the frames that it needs itself, when sprites have been made.
 */
class FCommentLayer : public QQuickItem
{
	Q_OBJECT
	QML_NAMED_ELEMENT(CommentLayer)
	/** How far above their places bottom comments are drawn, in logical pixels: what covers the item's lower edge. */
	Q_PROPERTY(double lift READ GetLift WRITE SetLift NOTIFY LiftChanged)

public:
	explicit FCommentLayer(QQuickItem* InParent = nullptr);
	~FCommentLayer() override;

	/** What is drawn, and told the item's size, its screen's scale and refresh rate. Null before the overlay ends. */
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
