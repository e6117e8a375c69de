import QtQuick
import QtQuick.Controls.Basic
import Flitmark

// A switch on a page.
Switch {
	id: root

	implicitWidth: 46
	implicitHeight: 28
	padding: 0
	Accessible.name: text
	Keys.onReturnPressed: click()
	Keys.onEnterPressed: click()

	contentItem: null

	indicator: Rectangle {
		anchors.centerIn: parent
		width: 46
		height: 26
		radius: 13
		color: root.checked ? Theme.accent : Theme.field
		border.color: root.checked ? "transparent" : root.hovered ? Theme.textSoft : Theme.textOff

		Behavior on color { ColorAnimation { duration: Theme.quick } }

		FocusRing {
			visible: root.visualFocus
			radius: 16
		}

		Rectangle {
			x: root.checked ? parent.width - width - 3 : 3
			anchors.verticalCenter: parent.verticalCenter
			width: 20
			height: 20
			radius: 10
			color: root.checked ? "white" : Theme.textOff

			Behavior on x { NumberAnimation { duration: Theme.quick; easing.type: Easing.OutCubic } }
		}
	}
}
