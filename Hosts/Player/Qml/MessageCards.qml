import QtQuick
import QtQuick.Controls.Basic
import Flitmark

// Errors, until the viewer dismisses them.
Column {
	id: root

	spacing: Theme.gap

	add: Transition {
		NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.fade }
	}
	move: Transition {
		NumberAnimation { property: "y"; duration: Theme.fade; easing.type: Easing.OutCubic }
	}

	Repeater {
		model: Player.messages

		Rectangle {
			id: card

			required property int index
			required property string message

			objectName: "Message"
			width: root.width
			height: Math.max(52, text.implicitHeight + 28)
			radius: 10
			color: Theme.raised
			border.color: Theme.line
			Accessible.role: Accessible.AlertMessage
			Accessible.name: message

			// Keeps clicks from the picture behind.
			MouseArea { anchors.fill: parent }

			Icon {
				x: 14
				y: 16
				name: "warning"
				color: Theme.warning
			}

			Text {
				id: text

				anchors.left: parent.left
				anchors.right: closeButton.left
				anchors.leftMargin: 46
				anchors.rightMargin: 8
				anchors.verticalCenter: parent.verticalCenter
				text: card.message
				textFormat: Text.PlainText
				wrapMode: Text.Wrap
				maximumLineCount: 8
				elide: Text.ElideRight
				color: Theme.text
				font.pixelSize: Theme.font
				lineHeight: 1.15
			}

			PlayerButton {
				id: closeButton

				anchors.right: parent.right
				anchors.rightMargin: 8
				y: 8
				sign: "close"
				text: qsTr("Dismiss")
				onClicked: Player.messages.Dismiss(card.index)
			}
		}
	}
}
