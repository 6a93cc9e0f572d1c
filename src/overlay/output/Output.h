#pragma once

#include <QImage>
#include <QPointer>

#include <functional>

class Desktop;
class SavePanel;
class QWidget;

// Where the finished picture goes: the clipboard or a file.
class Output {
public:
    Output(QWidget &overlay, Desktop &desktop);

    // After the picture is on the clipboard, whether or not the clipboard took
    // it: the log says which.
    std::function<void()> onCopied;
    // After the user chose a file and the picture was written there. When it
    // could not be, the clipboard has it, and the log says so.
    std::function<void()> onSaved;

    // PNG and TIFF as one clipboard item. Does nothing when the picture cannot
    // be encoded.
    void copy(const QImage &picture);
    // Opens the save panel and returns.
    void save(const QImage &picture);

    [[nodiscard]] bool panelOpen() const;
    void closePanel();

private:
    QWidget &m_overlay;
    Desktop &m_desktop;
    QPointer<SavePanel> m_panel;
};
