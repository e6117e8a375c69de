import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Flitmark

// The module's input bar, and its style panel above it.
FocusScope {
	id: root

	readonly property var bar: Viewer.bar
	readonly property var panel: Viewer.panel
	// There is something to write to.
	property bool writable: true
	// The keyboard is here only because it stayed after a comment was sent.
	property bool resting: false
	// In use: must not fade out.
	readonly property bool busy: panel.displayed || (activeFocus && !(field.activeFocus && resting))

	// Done with the keyboard here.
	signal done

	function focusField() {
		field.forceActiveFocus(Qt.ShortcutFocusReason)
	}

	// By key or touch, where no pointer rests on anything.
	function holdPanel() {
		stylePanel.held = true
		bar.settings.Hover()
	}

	function letGoOfPanel() {
		if (stylePanel.held) {
			stylePanel.held = false
			if (!settingsPointer.hovered && !stylePanel.underPointer)
				bar.settings.Unhover()
		}
	}

	// By touch or click: at once, wherever a pointer may rest.
	function closePanel() {
		stylePanel.held = false
		panel.Dismiss()
	}

	implicitHeight: Theme.barHeight
	Keys.onEscapePressed: done()

	Rectangle {
		anchors.fill: parent
		color: Theme.surface
	}

	RowLayout {
		anchors.fill: parent
		anchors.leftMargin: Theme.margin
		anchors.rightMargin: Theme.margin
		spacing: 10

		CommentSwitch { objectName: "OpenSwitch" }

		AbstractButton {
			id: settingsButton

			objectName: "SettingsButton"
			implicitWidth: Theme.control
			implicitHeight: Theme.control
			visible: root.bar.settings.displayed
			enabled: root.bar.settings.usable
			focusPolicy: Qt.TabFocus
			Accessible.name: qsTr("Comment style")
			Accessible.description: qsTr("Position, size and color of your comments")
			Keys.onPressed: event => {
				if ([Qt.Key_Space, Qt.Key_Return, Qt.Key_Enter].includes(event.key)) {
					root.holdPanel()
					stylePanel.focusFirst()
					event.accepted = true
				}
			}
			onClicked: {
				// A mouse may rest on the button while a finger taps it.
				if (settingsPointer.hovered && !finger.pressed)
					root.bar.settings.Hover()
				else if (stylePanel.held)
					root.closePanel()
				else
					root.holdPanel()
			}

			PointHandler {
				id: finger

				// Still true when the button tells of its click, which comes after the release.
				property bool pressed: false

				acceptedDevices: PointerDevice.TouchScreen
				onActiveChanged: {
					if (active)
						pressed = true
					else
						Qt.callLater(() => pressed = false)
				}
			}

			HoverHandler {
				id: settingsPointer

				// A touch leaves as soon as it arrives.
				acceptedDevices: PointerDevice.AllDevices & ~PointerDevice.TouchScreen
				onHoveredChanged: {
					if (hovered) {
						root.bar.settings.Hover()
					} else if (!stylePanel.held) {
						root.bar.settings.Unhover()
						// Enter events may come before leave events.
						if (stylePanel.underPointer)
							root.panel.Enter()
					}
				}
			}

			background: Rectangle {
				radius: Theme.radius
				color: root.panel.displayed ? Theme.pressed : settingsPointer.hovered ? Theme.hover : "transparent"

				FocusRing { visible: settingsButton.visualFocus }
			}

			contentItem: Item {
				Text {
					anchors.centerIn: parent
					anchors.verticalCenterOffset: -3
					text: qsTr("A", "a letter, for the style of comments")
					font.pixelSize: 17
					font.weight: Font.DemiBold
					color: root.panel.displayed || settingsPointer.hovered ? Theme.text : Theme.textSoft
				}

				// The color that is sent.
				Rectangle {
					anchors.horizontalCenter: parent.horizontalCenter
					anchors.bottom: parent.bottom
					anchors.bottomMargin: 5
					width: 18
					height: 3
					radius: 1.5
					color: root.panel.swatch
				}
			}
		}

		StylePanel {
			id: stylePanel

			objectName: "StylePanel"
			parent: panelPlace
			onPointerLeft: if (settingsPointer.hovered) root.bar.settings.Hover()
			onDismissed: {
				held = false
				root.panel.Dismiss()
				settingsButton.forceActiveFocus(Qt.BacktabFocusReason)
			}
			onActiveFocusChanged: {
				if (!activeFocus)
					root.letGoOfPanel()
				else if (!underPointer)
					held = true
			}
		}

		ViewerField {
			id: field

			objectName: "CommentField"
			Layout.fillWidth: true
			mirror: root.bar.field
			enabled: mirror.usable && root.writable
			rightPadding: counter.visible ? counter.width + 20 : 12
			placeholderText: root.writable ? qsTr("Send a comment") : qsTr("Open a video to send comments")
			Accessible.name: qsTr("Comment")
			onTextEdited: root.resting = false
			onActiveFocusChanged: root.resting = false
			onSent: {
				if (PlayerSettings.stayInField)
					root.resting = true
				else
					root.done()
			}

			Text {
				id: counter

				objectName: "Counter"
				anchors.right: parent.right
				anchors.rightMargin: 12
				anchors.verticalCenter: parent.verticalCenter
				visible: root.bar.counter.displayed
				text: root.bar.counter.text
				font.pixelSize: Theme.fontSmall
				color: Theme.textOff
			}
		}

		AbstractButton {
			id: sendButton

			objectName: "SendButton"
			implicitWidth: Math.max(84, sendText.implicitWidth + 32)
			implicitHeight: Theme.control
			enabled: root.bar.send.usable && root.writable
			focusPolicy: Qt.TabFocus
			text: qsTr("Send")
			Accessible.name: qsTr("Send the comment")
			Keys.onReturnPressed: click()
			Keys.onEnterPressed: click()
			onClicked: {
				// Text still being composed is part of the comment.
				Qt.inputMethod.commit()
				field.send(() => root.bar.send.Click())
			}

			background: Rectangle {
				radius: Theme.radius
				color: !sendButton.enabled ? Theme.hover : sendButton.pressed ? Qt.darker(Theme.accent, 1.2)
					: sendButton.hovered ? Qt.lighter(Theme.accent, 1.12) : Theme.accent

				Behavior on color { ColorAnimation { duration: Theme.quick } }

				FocusRing { visible: sendButton.visualFocus }
			}

			contentItem: Text {
				id: sendText

				text: sendButton.text
				font.pixelSize: Theme.font
				font.weight: Font.DemiBold
				color: sendButton.enabled ? Theme.accentText : Theme.textOff
				horizontalAlignment: Text.AlignHCenter
				verticalAlignment: Text.AlignVCenter
			}

			Tip {
				wanted: sendButton.hovered && !sendButton.pressed
				text: qsTr("Send (Enter)")
			}
		}
	}

	Item {
		id: panelPlace

		x: Math.max(Theme.gap, Math.min(settingsButton.x + Theme.margin + settingsButton.width / 2 - width / 2,
			root.width - width - Theme.gap))
		y: -height - Theme.gap
		width: stylePanel.implicitWidth
		height: stylePanel.implicitHeight
	}

	Connections {
		target: root.bar.settings

		// A disabled button never reports that the pointer left.
		function onUsableChanged() {
			if (!root.bar.settings.usable) {
				stylePanel.held = false
				root.panel.Leave()
			}
		}
	}

	Connections {
		target: root.panel

		function onDisplayedChanged() {
			if (!root.panel.displayed) {
				stylePanel.held = false
				if (stylePanel.activeFocus)
					root.done()
			}
		}
	}

	// A touch or click outside closes a panel that was opened without a pointer. On top of everything, so that it hears
	// of it first, and passes everything on.
	Item {
		parent: root.Window.contentItem
		anchors.fill: parent
		visible: stylePanel.held
		z: 1000

		PointHandler {
			acceptedButtons: Qt.AllButtons
			onActiveChanged: {
				const at = point.scenePosition
				const holds = item => item.contains(item.mapFromItem(null, at.x, at.y))
				if (active && !holds(stylePanel) && !holds(settingsButton))
					root.closePanel()
			}
		}
	}
}
