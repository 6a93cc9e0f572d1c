#pragma once

#include <QImage>
#include <QPointer>

#include <functional>

class Desktop;
class SavePanel;
class QWidget;

// Delivers the finished picture to the clipboard or to a file.
class Output {
public:
    Output(QWidget &overlay, Desktop &desktop);

    // Called after copying, whether or not the clipboard took the picture; the log
    // says which.
    std::function<void()> onCopied;
    // Called after the user chose a file and the picture was written to it. When
    // that fails, the picture goes to the clipboard instead, and the log says so.
    std::function<void()> onSaved;

    // Copies the picture as one clipboard item with PNG and TIFF. Does nothing when
    // the picture cannot be encoded.
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
