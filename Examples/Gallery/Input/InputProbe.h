// What a program may see and type in the session, and the questions for it.
#pragma once

#include "SharedCore/EventTapManager/EventTapManager.h"

#include <QObject>
#include <QPointF>
#include <QStringList>
#include <QtQmlIntegration>

#include <memory>
#include <thread>

namespace gallery {

// Listens only while it is told to. Of the keys that are pressed meanwhile the last few are shown, and
// nothing of them is stored or stays when it stops. Main thread.
class InputProbe : public QObject
{
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(bool isTrusted READ isTrusted NOTIFY trustChanged)
    Q_PROPERTY(bool isMicrophoneGranted READ isMicrophoneGranted NOTIFY permissionsChanged)
    Q_PROPERTY(QString calendar MEMBER calendar_ NOTIFY permissionsChanged) // the last answer, in words

    Q_PROPERTY(bool isListening READ isListening WRITE setListening NOTIFY listeningChanged)
    Q_PROPERTY(QPointF pointer MEMBER pointer_ NOTIFY observed)
    Q_PROPERTY(QString lastKeys READ lastKeys NOTIFY observed) // the newest last

    Q_PROPERTY(int secondsToTyping MEMBER secondsToTyping_ NOTIFY typingChanged) // 0: nothing is to be typed

public:
    using QObject::QObject;
    ~InputProbe() override;

    [[nodiscard]] static bool isTrusted();
    [[nodiscard]] static bool isMicrophoneGranted();
    // Asks the system afresh.
    Q_INVOKABLE void refresh();
    Q_INVOKABLE void refreshTrust() { Q_EMIT trustChanged(); }
    Q_INVOKABLE void requestTrust();
    Q_INVOKABLE void requestMicrophone();
    Q_INVOKABLE void requestCalendar();
    Q_INVOKABLE static void openAccessibilitySettings();
    Q_INVOKABLE static void openInputMonitoringSettings();
    Q_INVOKABLE static void openMicrophoneSettings();
    Q_INVOKABLE static void openCalendarSettings();
    Q_INVOKABLE static void openFullDiskAccessSettings();

    [[nodiscard]] QString lastKeys() const { return keys_.join(QLatin1Char(' ')); }
    [[nodiscard]] bool isListening() const { return taps_ != nullptr; }
    void setListening(bool isListening);

    // Into whatever has the focus in three seconds.
    Q_INVOKABLE void typeLater(const QString &text);

Q_SIGNALS:
    void trustChanged();
    void permissionsChanged();
    void listeningChanged();
    void observed();
    void typingChanged();

private:
    void listen();
    void noteKey(const std::string &characters, std::uint16_t code, bool isDelete);
    void countDown(const QString &text, int seconds);
    void type(const QString &text);

    std::unique_ptr<sharedcore::EventTapManager> taps_;
    QPointF pointer_;
    QStringList keys_;
    QString calendar_;
    int secondsToTyping_ = 0;
    std::thread typing_; // the call sleeps between characters
};

} // namespace gallery
