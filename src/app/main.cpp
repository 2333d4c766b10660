#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "app/main_window.h"
#include "app/output_flows.h"
#include "app/qt_prompter.h"
#include "app/termination_watcher.h"
#include "app/title_window.h"
#include "app/view_panel.h"
#include "app/viewer_session.h"

int main(int argc, char** argv) {
    kirameki::TerminationWatcher termination;
    QApplication application(argc, argv);
    QApplication::setApplicationName("Kirameki");
    QTranslator qtTranslator, ourTranslator;
    if (qtTranslator.load(QLocale(), "qtbase", "_",
                          QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&qtTranslator);
    if (ourTranslator.load(QLocale(), "kirameki", "_", ":/i18n"))
        QApplication::installTranslator(&ourTranslator);

    kirameki::QtPrompter prompter;
    kirameki::ViewerSession session(kirameki::CurrentProgramPaths(), prompter);
    kirameki::DialogFileChooser files;
    kirameki::MainWindow window(session, files);
    prompter.SetOwner(&window);
    QObject::connect(&session.Sink(), &kirameki::QtWorkerSink::titleWindowRequested, &window,
                     [&window] { (new kirameki::TitleWindow(&window))->show(); });
    session.Scene().SetPanel({window.Panel().width(), window.Panel().height()});
    QObject::connect(&termination, &kirameki::TerminationWatcher::terminationRequested, &window,
                     &kirameki::MainWindow::Terminate);
    termination.Start();
    window.show();
    session.Start();
    session.Client().Post(kirameki::kRedrawPreview);
    return application.exec();
}
