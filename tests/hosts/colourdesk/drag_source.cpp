// A window that drags a file: drag_source FILE. Press anywhere in it and move. What is dropped on it, it
// tells on its standard output.
#include <QApplication>
#include <QColor>
#include <QDrag>
#include <QDropEvent>
#include <QImage>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>
#include <cstdio>

namespace {

class Source : public QWidget {
public:
    explicit Source(QString file) : file_(std::move(file)) {
        setWindowTitle("drag_source");
        setGeometry(1300, 100, 200, 200);
        setAcceptDrops(true);
    }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override { event->acceptProposedAction(); }
    void dropEvent(QDropEvent* event) override {
        QMimeData const& dropped = *event->mimeData();
        std::printf("text=%s color=%s files=%d picture=%d\n", qPrintable(dropped.text().simplified()),
                    dropped.hasColor() ? qPrintable(dropped.colorData().value<QColor>().name()) : "none",
                    static_cast<int>(dropped.urls().size()), dropped.imageData().value<QImage>().width());
        std::fflush(stdout);
        event->acceptProposedAction();
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        if (event->buttons() == Qt::NoButton) return;
        auto* const dragged = new QMimeData;
        dragged->setUrls({QUrl::fromLocalFile(file_)});
        auto* const drag = new QDrag(this);
        drag->setMimeData(dragged);
        drag->exec(Qt::CopyAction);
    }

private:
    QString file_;
};

} // namespace

int main(int count, char** arguments) {
    QApplication application(count, arguments);
    Source source(QString::fromLocal8Bit(arguments[count - 1]));
    source.show();
    return QApplication::exec();
}
