// A Qt Widgets text view.
#include "Tests/Support/Xorg/TextViews/TextView.h"

#include <QApplication>
#include <QScrollBar>
#include <QTextEdit>
#include <QTimer>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QTextEdit view;
    view.setReadOnly(true);
    view.setPlainText(QString::fromStdString(textview::longText()));
    view.setGeometry(0, 0, textview::width, textview::height);
    view.show();

    auto *bar = view.verticalScrollBar();
    QTimer::singleShot(0, bar, [bar, fraction = textview::startFraction(argc, argv)] {
        bar->setValue(static_cast<int>(bar->maximum() * fraction));
        QObject::connect(bar, &QScrollBar::valueChanged, bar, textview::sayPosition);
        textview::sayReady(bar->value());
    });
    return QApplication::exec();
}
