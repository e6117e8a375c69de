import QtQuick
import Flitmark

// The heading of a group of controls.
Text {
	font.pixelSize: Theme.fontSmall
	color: Theme.textSoft
}
