import QtQuick
import QtQuick.Controls.Basic
import Flitmark

// A menu in the player's style; the current choice has a check mark.
Menu {
	id: root

	property int lineWidth: 200

	padding: 6
	background: Rectangle {
		implicitWidth: root.lineWidth
		radius: 10
		color: Theme.raised
		border.color: Theme.line
	}
	enter: Transition { NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.quick } }
	exit: Transition { NumberAnimation { property: "opacity"; to: 0; duration: Theme.quick } }

	delegate: MenuItem {
		id: item

		readonly property string keys: action?.keys ?? ""

		implicitHeight: 34
		padding: 0
		Accessible.name: text
		indicator: null
		arrow: null
		background: Rectangle {
			radius: Theme.radiusSmall
			color: item.highlighted ? Theme.hover : "transparent"
		}
		contentItem: Item {
			Icon {
				x: 8
				anchors.verticalCenter: parent.verticalCenter
				visible: item.checked
				name: "check"
				size: 16
				color: Theme.accent
			}

			Text {
				x: item.checkable ? 32 : 12
				width: parent.width - x - keyText.width - 20
				anchors.verticalCenter: parent.verticalCenter
				text: item.text
				elide: Text.ElideMiddle
				color: item.enabled ? Theme.text : Theme.textOff
				font.pixelSize: Theme.font
			}

			Text {
				id: keyText

				anchors.right: parent.right
				anchors.rightMargin: 12
				anchors.verticalCenter: parent.verticalCenter
				text: item.keys
				color: Theme.textOff
				font.pixelSize: Theme.fontSmall
			}
		}
	}
}
