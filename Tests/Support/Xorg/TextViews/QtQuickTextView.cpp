// A Qt Quick text view.
#include "Tests/Support/Xorg/TextViews/TextView.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickView>
#include <QTimer>

#include <cmath>

namespace {

// Speaks for the flickable, whose type has no public header.
class Position final : public QObject
{
    Q_OBJECT

public:
    explicit Position(QQuickItem &flickable)
        : QObject(&flickable)
        , flickable_(flickable)
    {}

    void goToStart(double fraction)
    {
        const double range = flickable_.property("contentHeight").toDouble() - flickable_.height();
        flickable_.setProperty("contentY", std::floor(range * fraction));
        connect(&flickable_, SIGNAL(contentYChanged()), this, SLOT(say()));
        textview::sayReady(value());
    }

private Q_SLOTS:
    void say() { textview::sayPosition(value()); }

private:
    [[nodiscard]] double value() const { return flickable_.property("contentY").toDouble(); }

    QQuickItem &flickable_;
};

} // namespace

int main(int argc, char **argv)
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    QQuickView view;
    view.setInitialProperties({{QStringLiteral("content"), QString::fromStdString(textview::longText())}});
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.setGeometry(0, 0, textview::width, textview::height);
    view.setSource(QUrl(QStringLiteral("qrc:/TextView.qml")));
    view.show();

    auto *position = new Position(*view.rootObject());
    QTimer::singleShot(0, position,
                       [=, start = textview::startFraction(argc, argv)] { position->goToStart(start); });
    return QGuiApplication::exec();
}

#include "QtQuickTextView.moc"
