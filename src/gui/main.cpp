#include "arbo/usermessage.h"
#include "gui/glformat.h"
#include "gui/mainwindow.h"

#include <QApplication>
#include <QLocale>
#include <QMessageBox>
#include <QSplashScreen>
#include <QTranslator>

namespace {

// Messages from the tree model, terrain data and simulation reach the user
// as information boxes.
void installMessageBoxes() {
    arbo::setUserMessageHandler([](const std::string& title, const std::string& text) {
        QMessageBox::information(QApplication::activeWindow(), QString::fromStdString(title),
                                 QString::fromStdString(text));
    });
}

} // namespace

int main(int argc, char* argv[]) {
    gui::requestGlFormat();
    QApplication app(argc, argv);

    QTranslator translator;
    (void)translator.load(QString(":/gui/translations/virela_") + QLocale::system().name());
    app.installTranslator(&translator);
    installMessageBoxes();

    auto* splash = new QSplashScreen(QPixmap(":/gui/icons/icons/splash.png"));
    splash->show();
    app.processEvents();

    gui::MainWindow window;
    window.show();
    splash->finish(&window);
    delete splash;

    return app.exec();
}
