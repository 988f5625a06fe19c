import QtQuick
import SharedUI
import StirraGallery
import Toolkit

ComponentPage {
    id: page

    property int clicks: 0

    title: "AnimatedButton"
    stage: AnimatedButton {
        id: button

        anchors.centerIn: parent
        title: "Get started"
        icon: "play.fill"
        action: () => page.clicks += 1
    }

    WordField {
        title: "Title"
        text: button.title
        onEdited: wanted => button.title = wanted
    }

    WordField {
        title: "Icon"
        placeholder: "A system symbol's name"
        text: button.icon
        onEdited: wanted => button.icon = wanted
    }

    Label {
        objectName: "clicks"
        text: page.clicks === 1 ? "Clicked once" : `Clicked ${page.clicks} times`
        color: SystemStyle.secondaryLabel
    }
}
