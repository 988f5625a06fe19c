import QtQuick
import QtQuick.Layouts
import StirraGallery
import Toolkit

// The machine's sensors, live while the page is shown.
ComponentPage {
    id: page

    title: "Sensors"
    stageHeight: 0

    SensorReadings {
        id: readings

        isRunning: page.visible && page.Window.visibility !== Window.Hidden
    }

    SensorSection {
        title: "Ambient light"
        value: `${Math.round(100 * readings.light)} %`
        missing: readings.hasLight ? "" : "This machine has no light sensor that can be read."
        history: readings.lightHistory
        colors: [SystemStyle.yellow]
    }

    SensorSection {
        title: "Lid angle"
        value: `${Math.round(readings.lid)}° ${readings.isLidMeasured ? "measured" : "estimated"}`
        history: readings.lidHistory
        colors: [SystemStyle.purple]
        highest: 360
    }

    Label {
        visible: !readings.isLidMeasured
        text: readings.hasLight ? "No hinge tells its angle: it is guessed from the light."
                                : "No hinge tells its angle, and no light sensor helps to guess it."
        color: SystemStyle.secondaryLabel
        wrapMode: Text.Wrap
        Layout.fillWidth: true
    }

    SensorSection {
        title: "Acceleration"
        value: readings.isMotionRead
               ? `${readings.motion.x.toFixed(2)}  ${readings.motion.y.toFixed(2)}  ${readings.motion.z.toFixed(2)} g`
               : "No reading"
        missing: readings.hasMotion ? "" : "This machine has no accelerometer that can be read."
        history: readings.motionHistory
        colors: [SystemStyle.red, SystemStyle.green, SystemStyle.blue]
        lowest: -2
        highest: 2
    }
}
