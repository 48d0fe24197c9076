#pragma once

#include <QDialog>

namespace GUI {

class Dialog_PC;

/// The platform window of a "Dialog". The Enter key never closes it; the Esc key clicks the element
/// that the description names for it.
class CNorvelianDialog : public QDialog {
public:
    CNorvelianDialog(Dialog_PC& element, QWidget* parent, Qt::WindowFlags flags);

    void Detach() { element_ = nullptr; }
    void accept() override {}
    void reject() override;

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    Dialog_PC* element_;
    bool firstShow_ = true;
};

} // namespace GUI
