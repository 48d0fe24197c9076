// A window that drags a file: drag_source FILE. Press anywhere in it and move.
#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>

namespace {

class Source : public QWidget {
public:
    explicit Source(QString file) : file_(std::move(file)) {
        setWindowTitle("drag_source");
        setGeometry(1300, 100, 200, 200);
    }

protected:
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
