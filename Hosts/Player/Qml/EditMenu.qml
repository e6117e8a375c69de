import QtQuick
import QtQuick.Controls.Basic
import Flitmark

// The context menu of a text field.
PlayerMenu {
	id: root

	required property var field

	lineWidth: 180

	Action {
		text: qsTr("Cut")
		enabled: root.field.selectedText.length > 0
		onTriggered: root.field.cut()
	}

	Action {
		text: qsTr("Copy")
		enabled: root.field.selectedText.length > 0
		onTriggered: root.field.copy()
	}

	Action {
		text: qsTr("Paste")
		enabled: root.field.canPaste
		onTriggered: root.field.paste()
	}

	Action {
		text: qsTr("Select all")
		enabled: root.field.length > 0
		onTriggered: root.field.selectAll()
	}
}
