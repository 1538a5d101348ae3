#pragma once

#include "mainscreen/openFileDialog.h"
#include "platform/host.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QString>

#include <string>
#include <vector>

class QObject;
class QPrinter;
class QWidget;

namespace mainscreen {

class ErrorMsg;
class FrmWaiting;
class ReadingWindow;

// Puts the picture on one landscape page, scaled to it with its aspect kept. Throws RuntimeError 482.
void printOn(QPrinter& printer, const platform::Picture& picture);

// The host as the operator meets it: plain-text boxes, file dialogs that open in the folder last used, the
// mouse pointer as a state, and the list of messages. It is the process's host while it lives.
class QtHost : public platform::Host
{
public:
    QtHost();
    ~QtHost() override;
    QtHost(const QtHost&) = delete;
    QtHost& operator=(const QtHost&) = delete;

    platform::Answer msgBox(const std::string& text, platform::Buttons buttons, platform::Icon icon,
                            const std::string& title) override;
    void beep() override;
    void setPointer(int pointer) override;
    std::optional<std::string> openFile(const platform::FileChoice& choice) override;
    void print(const platform::Picture& picture) override;
    void clearErrorLines() override;
    void addErrorLine(const std::string& line) override;
    void openCheck(const platform::CheckStart& start) override;
    void appendCheckText(const std::string& text) override;
    void selectErrorLine(int line) override;
    void endCheck() override;
    void showWaiting() override;
    void paintWaiting() override;
    void closeWaiting() override;

    // The window of the messages; made, but not shown, when first asked for since it was unloaded.
    [[nodiscard]] ErrorMsg& errorMsg();
    [[nodiscard]] bool isErrorMsgLoaded() const { return !m_errorMsg.isNull(); }
    void unloadErrorMsg();

    [[nodiscard]] int pointer() const { return m_pointer; }

protected:
    // Works off what paints the windows, and nothing that the operator does: it has to wait until the work in
    // hand is done.
    virtual void workOffPainting();
    // What the window that waits shows while it does. The program has none.
    [[nodiscard]] virtual QObject* waitingAnimation() { return nullptr; }

private:
    void bringUp(QWidget& window);
    void showReachedLine();
    void showReading(const std::vector<std::string>& paths);
    void hideReading();

    int m_pointer = platform::pointerDefault;
    QString m_folder; // of the file picked last; empty before the first
    OpenFileDialog::Look m_fileDialogLook;
    QPointer<ErrorMsg> m_errorMsg;  // goes with the window that it was loaded over, at the latest
    QPointer<FrmWaiting> m_waiting; // likewise
    QPointer<ReadingWindow> m_reading;
    QPointer<QWidget> m_activeBeforeReading;
    int m_reachedLine = noLine; // of the check, not yet shown
    QElapsedTimer m_sinceShown; // the line reached; invalid before the first of a check

    static constexpr int noLine = -1;
};

} // namespace mainscreen
