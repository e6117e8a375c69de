import QtQuick
import QtQuick.Controls.Basic
import Flitmark

// A text button on a page; the prominent one is what most viewers want.
AbstractButton {
	id: root

	property bool prominent: false

	implicitWidth: Math.max(88, caption.implicitWidth + 32)
	implicitHeight: Theme.control
	Accessible.name: text
	Keys.onReturnPressed: click()
	Keys.onEnterPressed: click()

	background: Rectangle {
		radius: Theme.radius
		color: root.prominent
			? root.pressed ? Qt.darker(Theme.accent, 1.2) : root.hovered ? Qt.lighter(Theme.accent, 1.12) : Theme.accent
			: root.pressed ? Theme.pressed : root.hovered ? Theme.hover : "transparent"
		border.width: root.prominent ? 0 : 1
		border.color: Theme.line

		FocusRing { visible: root.visualFocus }
	}

	contentItem: Text {
		id: caption

		text: root.text
		font.pixelSize: Theme.font
		font.weight: root.prominent ? Font.DemiBold : Font.Normal
		color: root.prominent ? Theme.accentText : Theme.text
		horizontalAlignment: Text.AlignHCenter
		verticalAlignment: Text.AlignVCenter
	}
}
