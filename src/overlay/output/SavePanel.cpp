#include "overlay/output/SavePanel.h"

#include "base/Fonts.h"
#include "l10n/L10n.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

#include <algorithm>

namespace {

constexpr int margin = 14; // points
const QString extension = QStringLiteral("png");

// Tells files apart by their names alone. Qt's own provider opens every
// file of a folder to see what is in it, and waits where reading waits.
class NameOnlyIcons final : public QFileIconProvider {
public:
    QIcon icon(const QFileInfo &info) const override
    {
        return QFileIconProvider::icon(info.isDir() ? QFileIconProvider::Folder : QFileIconProvider::File);
    }
    QString type(const QFileInfo &info) const override { return info.isDir() ? QString() : info.suffix(); }
    using QFileIconProvider::icon;
};

QFileIconProvider &nameOnlyIcons()
{
    static NameOnlyIcons icons;
    return icons;
}

QString withExtension(const QString &path)
{
    const bool has = QFileInfo(path).suffix().compare(extension, Qt::CaseInsensitive) == 0;
    return has ? path : path + u'.' + extension;
}

QString question(const char *text, const QString &name)
{
    return QCoreApplication::translate("QFileDialog", text).arg(name);
}

// Qt gives the columns widths of their own, which cut their titles off.
void fitColumns(const QFileDialog &panel)
{
    if (const auto *files = panel.findChild<QTreeView *>(QStringLiteral("treeView"))) {
        files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        files->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    }
}

QPoint middleOf(const QWidget &control, const QWidget &panel)
{
    return control.mapTo(&panel, control.rect().center());
}

// What Tab can reach, row by row as one reads it. A row ends where the control with
// the highest middle ends.
QList<QWidget *> controlsInSight(const QWidget &panel)
{
    QList<QWidget *> controls = panel.findChildren<QWidget *>();
    controls.removeIf([&](const QWidget *control) {
        return !control->isVisibleTo(&panel) || !control->isEnabled() || control->focusProxy()
               || control->window() != panel.window() || !(control->focusPolicy() & Qt::TabFocus);
    });
    const auto middle = [&](const QWidget *control) { return middleOf(*control, panel); };
    std::ranges::sort(controls, {}, [&](const QWidget *control) { return middle(control).y(); });
    for (auto row = controls.begin(); row != controls.end();) {
        const int below = middle(*row).y() + (*row)->height() / 2;
        const auto next = std::find_if(row, controls.end(), [&](auto *c) { return middle(c).y() > below; });
        std::ranges::sort(row, next, {}, [&](const QWidget *control) { return middle(control).x(); });
        row = next;
    }
    return controls;
}

} // namespace

SavePanel::SavePanel(QWidget &overlay, const QString &folder, const QString &name)
    : QFileDialog(&overlay, QString(), folder)
    , m_question(new QLabel(this))
    , m_answers(new QDialogButtonBox(QDialogButtonBox::Yes | QDialogButtonBox::No, this))
{
    setAccessibleName(L10n::t(u"Guardar"));
    setOption(DontUseNativeDialog);
    setIconProvider(&nameOnlyIcons());
    setAcceptMode(AcceptSave);
    setFileMode(AnyFile);
    setNameFilter(QStringLiteral("PNG (*.png)"));
    setDefaultSuffix(extension);
    selectFile(name);
    setWindowFlags(Qt::Widget);
    setAttribute(Qt::WA_DeleteOnClose);
    setAutoFillBackground(true);
    setCursor(Qt::ArrowCursor);
    setSizeGripEnabled(false);
    setContentsMargins(margin, margin, margin, margin);
    fitColumns(*this);
    m_question->setWordWrap(true);
    if (auto *grid = qobject_cast<QGridLayout *>(layout())) {
        grid->addWidget(m_question, grid->rowCount(), 0, 1, grid->columnCount());
        grid->addWidget(m_answers, grid->rowCount(), 0, 1, grid->columnCount());
    }
    connect(m_answers, &QDialogButtonBox::accepted, this, [this] { choose(m_asked); });
    connect(m_answers, &QDialogButtonBox::rejected, this, &SavePanel::withdrawQuestion);
    connect(this, &QFileDialog::currentChanged, this, &SavePanel::withdrawQuestion);
    withdrawQuestion();
}

void SavePanel::open()
{
    const QRect room = parentWidget()->rect();
    resize((sizeHint() * Fonts::enlargement()).boundedTo(room.size()));
    move(room.center() - rect().center());
    show();
    raise();
    if (auto *name = findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))) {
        connect(name, &QLineEdit::textEdited, this, &SavePanel::withdrawQuestion);
        name->setFocus();
        name->setSelection(0, static_cast<int>(QFileInfo(name->text()).completeBaseName().size()));
    }
}

void SavePanel::accept()
{
    const QStringList files = selectedFiles();
    if (files.isEmpty())
        return;
    if (QFileInfo(files.first()).isDir())
        return setDirectory(files.first());
    const QFileInfo file(withExtension(files.first()));
    if (!QFileInfo(file.path()).isDir())
        ask(question("%1\nDirectory not found.\nPlease verify the correct directory name was given.",
                     file.path()),
            QString());
    else if (file.exists())
        ask(question("%1 already exists.\nDo you want to replace it?", file.fileName()), file.filePath());
    else
        choose(file.filePath());
}

void SavePanel::choose(const QString &path)
{
    // The panel goes before the news of it ends the overlay around it.
    const auto chosen = onChosen;
    done(Accepted);
    if (chosen)
        chosen(path);
}

void SavePanel::ask(const QString &question, const QString &path)
{
    m_asked = path;
    m_question->setText(question);
    m_question->show();
    m_announcer.say(question);
    m_answers->setVisible(!path.isEmpty());
    if (auto *no = m_answers->button(QDialogButtonBox::No); !path.isEmpty())
        no->setFocus();
}

void SavePanel::withdrawQuestion()
{
    m_asked.clear();
    m_question->hide();
    m_answers->hide();
}

// Qt goes down the fields and the answers to a question before it goes to the buttons
// beside the fields; and 6.4 goes in circles among some of them when told otherwise.
bool SavePanel::focusNextPrevChild(bool next)
{
    const QList<QWidget *> controls = controlsInSight(*this);
    if (controls.isEmpty())
        return false;
    const auto count = controls.size();
    const auto from = controls.indexOf(QApplication::focusWidget());
    const auto to = next ? (from + 1) % count : (std::max<qsizetype>(from, 0) + count - 1) % count;
    controls[to]->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

// What the panel has no use for must not reach the overlay below: Return would
// copy, a letter would choose a tool.
void SavePanel::keyPressEvent(QKeyEvent *event)
{
    QFileDialog::keyPressEvent(event);
    event->accept();
}

void SavePanel::mousePressEvent(QMouseEvent *event) { event->accept(); }
