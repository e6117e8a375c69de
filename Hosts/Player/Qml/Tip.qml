import QtQuick
import QtQuick.Controls.Basic
import Flitmark

// The tooltip of the control that it is in.
ToolTip {
	id: root

	property bool wanted: false

	visible: wanted && text.length > 0
	delay: 600
	timeout: 6000
	padding: 0
	contentItem: Text {
		text: root.text
		leftPadding: 10
		rightPadding: 10
		topPadding: 6
		bottomPadding: 6
		color: Theme.text
		font.pixelSize: Theme.fontSmall
	}
	background: Rectangle {
		radius: Theme.radiusSmall
		color: Theme.raised
		border.color: Theme.line
	}
}
