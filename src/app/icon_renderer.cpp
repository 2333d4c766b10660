// Build tool: renders the program's SVG icon as square PNG files of the sizes given.
// Usage: icon_renderer ICON.svg OUTPUT_FOLDER SIZE...  (writes OUTPUT_FOLDER/SIZE.png)
#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>
#include <cstdio>

int main(int argc, char** argv) {
    if (argc < 4) {
        std::fprintf(stderr, "usage: icon_renderer ICON.svg OUTPUT_FOLDER SIZE...\n");
        return 2;
    }
    QSvgRenderer renderer(QString::fromLocal8Bit(argv[1]));
    if (!renderer.isValid()) {
        std::fprintf(stderr, "icon_renderer: cannot read %s\n", argv[1]);
        return 1;
    }
    for (int i = 3; i < argc; ++i) {
        bool ok = false;
        const int size = QString::fromLocal8Bit(argv[i]).toInt(&ok);
        if (!ok || size < 1 || size > 4096) {
            std::fprintf(stderr, "icon_renderer: bad size %s\n", argv[i]);
            return 2;
        }
        QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        renderer.render(&painter);
        painter.end();
        const QString path = QString::fromLocal8Bit(argv[2]) + "/" + QString::number(size) + ".png";
        if (!image.save(path, "PNG")) {
            std::fprintf(stderr, "icon_renderer: cannot write %s\n", qPrintable(path));
            return 1;
        }
    }
    return 0;
}
