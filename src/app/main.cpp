#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QStandardPaths>
#include <QTimer>
#include <QTranslator>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "app/main_window.h"
#include "app/output_flows.h"
#include "app/qt_prompter.h"
#include "app/termination_watcher.h"
#include "app/title_window.h"
#include "app/view_panel.h"
#include "app/viewer_session.h"

namespace {

// --help and --version print and exit. They are answered before any window system is
// opened, so they work without a display too. Answers the design file named, if any.
QString AnswerHelpAndVersion(QCoreApplication& application) {
    QCommandLineParser options;
    options.setApplicationDescription(
        QCoreApplication::translate("main", "Views cut gemstones and ray-traces their sparkle."));
    options.addHelpOption();
    options.addVersionOption();
    options.addPositionalArgument("FILE.asc",
                                  QCoreApplication::translate("main", "A faceting design to open."),
                                  "[FILE.asc]");
    options.process(application);
    const QStringList files = options.positionalArguments();
    if (files.size() > 1) {
        std::fprintf(stderr, "%s\n",
                     qPrintable(QCoreApplication::translate(
                         "main", "Only one design can be opened at a time.")));
        std::exit(2);
    }
    return files.value(0);
}

bool AsksForHelpOrVersion(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument == "--")
            break;
        if (argument == "-h" || argument == "--help" || argument == "--help-all" ||
            argument == "-v" || argument == "--version" || argument == "-?")
            return true;
    }
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication::setApplicationName("Kirameki");
    QCoreApplication::setApplicationVersion(KIRAMEKI_VERSION);
    QCoreApplication::setOrganizationDomain("kirameki.github.io");
    if (AsksForHelpOrVersion(argc, argv)) {
        QCoreApplication application(argc, argv);
        AnswerHelpAndVersion(application);
    }
    kirameki::TerminationWatcher termination;
    QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(KIRAMEKI_APP_ID);
    QApplication::setWindowIcon(
        QIcon::fromTheme(KIRAMEKI_APP_ID, QIcon(":/icons/" KIRAMEKI_APP_ID ".svg")));
    QTranslator qtTranslator, ourTranslator;
    if (qtTranslator.load(QLocale(), "qtbase", "_",
                          QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&qtTranslator);
    if (ourTranslator.load(QLocale(), "kirameki", "_", ":/i18n"))
        QApplication::installTranslator(&ourTranslator);

    const QString design = AnswerHelpAndVersion(application);  // refuses unknown options

    kirameki::QtPrompter prompter;
    kirameki::ViewerSession session(
        kirameki::CurrentProgramPaths(
            QStandardPaths::writableLocation(QStandardPaths::PicturesLocation).toStdString()),
        prompter);
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
    if (!design.isEmpty())
        QTimer::singleShot(0, &window, [&window, design] { window.OpenDesign(design); });
    return application.exec();
}
