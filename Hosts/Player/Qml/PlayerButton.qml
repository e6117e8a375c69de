import QtQuick
import QtQuick.Controls.Basic
import Flitmark

// A button of the transport: an icon, a tooltip that names its key, no focus on click.
AbstractButton {
	id: root

	property string sign
	property string keys
	property alias tipWanted: tip.wanted

	implicitWidth: Theme.control
	implicitHeight: Theme.control
	focusPolicy: Qt.TabFocus
	opacity: enabled ? 1 : 0.4
	Accessible.name: text
	Keys.onReturnPressed: click()
	Keys.onEnterPressed: click()

	background: Rectangle {
		radius: Theme.radius
		color: root.pressed ? Theme.pressed : root.hovered ? Theme.hover : "transparent"

		FocusRing {
			visible: root.visualFocus
			anchors.margins: -1
		}
	}

	contentItem: Item {
		Icon {
			anchors.centerIn: parent
			name: root.sign
			size: 22
		}
	}

	Tip {
		id: tip

		wanted: root.hovered && !root.pressed
		text: root.keys.length > 0 ? qsTr("%1 (%2)", "what a button does, and its key").arg(root.text).arg(root.keys) : root.text
	}
}
