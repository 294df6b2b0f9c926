// A host on Qt 5: shows the plug-in's editor in a window of its own for two seconds.
#include "tests/editor/host/small_host.h"

#include <QGuiApplication>
#include <QTimer>
#include <QWindow>

using velmora::test::SmallHost;

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "xcb");
    QGuiApplication application(argc, argv);
    SmallHost host(argc, argv);

    QWindow window;
    window.resize(host.width(), host.height());
    window.show();
    if (!host.open(window.winId())) return SmallHost::kRefused;

    QTimer idling;
    QObject::connect(&idling, &QTimer::timeout, [&host] { host.idle(); });
    idling.start(SmallHost::kIdleMilliseconds);
    QTimer::singleShot(SmallHost::kShownMilliseconds, &application, &QCoreApplication::quit);
    QGuiApplication::exec();

    const bool shown = host.showsPicture();
    host.close();
    idling.stop();
    host.unload();
    window.destroy();
    QGuiApplication::processEvents(); // errors that are still on their way
    return shown ? 0 : SmallHost::kBlank;
}
