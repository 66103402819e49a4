// SPDX-License-Identifier: MIT
#include "Inspector/ZelLiveInspector.h"

#include "Controls/Fields/ZelEditSession.h"
#include "Controls/ZelPopover.h"
#include "Controls/private/ZelThemeColor.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/RunLoop/ZelEventScope.h"
#include "Core/RunLoop/ZelMemberScope.h"
#include "Inspector/ZelInspectorContainer.h"
#include "Inspector/private/ZelCollectedFailures.h"
#include "Inspector/private/ZelFileWatch.h"
#include "Inspector/private/ZelPanelFocus.h"
#include "Resources/ZelBundle.h"
#include "Resources/ZelLocalizedString.h"
#include "ViewController/ZelView.h"
#include "ViewController/private/ZelTabOrder.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int g_retryInterval = 150; // in milliseconds
constexpr int g_margin = 6;
constexpr qsizetype g_shownErrors = 12;

} // namespace

ZelLiveInspector::ZelLiveInspector(QWidget *parent)
    : ZelGuarded<QWidget>(parent)
    , m_generator(std::make_unique<ZelDeclarativeInspectorGenerator>())
    , m_errorLabel(new QLabel(this))
    , m_watch(new ZelFileWatch(this))
{
    m_errorLabel->setTextFormat(Qt::PlainText);
    m_errorLabel->setWordWrap(true);
    m_errorLabel->setMargin(g_margin);
    m_errorLabel->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_errorLabel->setFocusPolicy(Qt::StrongFocus);
    m_errorLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_errorLabel->setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    m_errorLabel->setBackgroundRole(QPalette::Base);
    m_errorLabel->setForegroundRole(QPalette::WindowText);
    m_errorLabel->setAutoFillBackground(true);
    m_errorLabel->setAccessibleName(ZelLocalizedString("Errors in the description"));
    m_errorLabel->hide();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_errorLabel);
    layout->addStretch(); // takes the room while there is no panel
    colorErrors();
    m_retry.setInterval(g_retryInterval);
    connect(&m_retry, &QTimer::timeout, this, [this] { ZelExceptionReporter::run(this, [this] { tryAgain(); }); });
    connect(m_watch, &ZelFileWatch::changed, this, &ZelLiveInspector::filesDidChange);
}

ZelLiveInspector::~ZelLiveInspector()
{
    if (m_inspector)
        takeOut(m_inspector);
}

ZelInspectorContainer *ZelLiveInspector::inspector() const
{
    return m_inspector;
}

// Settings

void ZelLiveInspector::setUrl(const QUrl &url)
{
    m_generator->setUrl(url);
    scheduleReload();
}

void ZelLiveInspector::setOwner(QObject *owner)
{
    m_generator->setOwner(owner);
    scheduleReload();
}

void ZelLiveInspector::setDelegate(ZelDeclarativeInspectorGeneratorDelegate *delegate)
{
    m_generator->setDelegate(delegate);
    scheduleReload();
}

void ZelLiveInspector::setGenerator(std::unique_ptr<ZelDeclarativeInspectorGenerator> generator)
{
    if (!ZelRequire(bool(generator), "generator"))
        return;
    m_generator = std::move(generator);
    scheduleReload();
}

void ZelLiveInspector::setWatchedFolders(const QStringList &folders)
{
    m_folders = folders;
    if (m_wasLoaded)
        m_watch->setPaths(m_generator->files(), m_folders);
}

// Building

void ZelLiveInspector::scheduleReload()
{
    if (m_wasLoaded && !m_retry.isActive())
        m_retry.start(0);
}

void ZelLiveInspector::filesDidChange(const QStringList &files)
{
    if (files.isEmpty() && m_errors.isEmpty())
        return; // while something is wrong, it may be put right by a file that nobody has asked for
    const QPointer<ZelLiveInspector> alive(this);
    if (!files.isEmpty())
        Q_EMIT filesChanged(files);
    if (alive)
        reload();
}

/// What Qt or the library is in the middle of goes on with the widgets that it began with.
bool ZelLiveInspector::canReplace() const
{
    if (!m_inspector)
        return true;
    if (ZelEventScope::isActive() || QApplication::activePopupWidget() || QGuiApplication::mouseButtons())
        return false;
    QList<ZelPopover *> popovers = m_inspector->findChildren<ZelPopover *>();
    if (m_inspector->isViewLoaded())
        popovers += m_inspector->view()->findChildren<ZelPopover *>();
    return std::none_of(popovers.begin(), popovers.end(), [](const ZelPopover *popover) { return popover->isShown(); });
}

bool ZelLiveInspector::isTyping() const
{
    if (!m_inspector || !m_inspector->isViewLoaded())
        return false;
    const QList<QWidget *> widgets = m_inspector->view()->findChildren<QWidget *>();
    return std::any_of(widgets.begin(), widgets.end(), [](QWidget *widget) {
        const auto *session = dynamic_cast<ZelEditSession *>(widget);
        return session && session->isEditing();
    });
}

/// Answers false if there is typing that cannot be taken, or if the panel or this widget has died of the commit.
bool ZelLiveInspector::commitTyping()
{
    const QPointer<ZelLiveInspector> alive(this);
    const ZelPassiveEdits passive;
    const bool isCommitted = !m_inspector || m_inspector->commitEditing();
    if (alive)
        m_isRefused = !isCommitted;
    return alive && isCommitted;
}

void ZelLiveInspector::tryAgain()
{
    if (!canReplace() || (m_isRefused && isTyping()))
        m_retry.setInterval(g_retryInterval);
    else
        reload();
}

bool ZelLiveInspector::reload()
{
    if (m_isLoading) {
        m_retry.start(g_retryInterval);
        return m_errors.isEmpty();
    }
    const QPointer<ZelLiveInspector> alive(this);
    const ZelMemberScope loading(this, m_isLoading, true);
    m_wasLoaded = true;
    m_retry.stop();
    std::unique_ptr<ZelInspectorContainer> made;
    QList<ZelReadError> errors;
    {
        ZelCollectedFailures failures;
        failures.collect([&] { made.reset(m_generator->createContainer()); });
        errors = failures.errors();
    }
    if (!alive)
        return false;
    m_watch->setPaths(m_generator->files(), m_folders);
    if (made && errors.isEmpty()) {
        if (!canReplace() || !commitTyping()) {
            if (alive)
                m_retry.start(g_retryInterval);
            return true;
        }
        errors = replaceBy(made.release());
    }
    if (alive)
        setErrors(errors);
    return errors.isEmpty();
}

/// The former panel stays if the other one cannot be shown; the errors say why.
QList<ZelReadError> ZelLiveInspector::replaceBy(ZelInspectorContainer *inspector)
{
    const QPointer<ZelLiveInspector> alive(this);
    const QPointer<ZelInspectorContainer> former = m_inspector;
    const QPointer<ZelInspectorContainer> other = inspector;
    const QByteArray state = former ? former->saveState() : QByteArray();
    const std::optional<ZelPanelFocus> focus = former ? std::optional<ZelPanelFocus>(former.data()) : std::nullopt;
    const ZelTabOrder order(this);
    ZelCollectedFailures failures;
    setUpdatesEnabled(false);
    const bool isShown = failures.collect([&] {
        if (former)
            takeOut(former);
        inspector->restoreState(state);
        putInto(inspector);
    });
    if (alive && other && isShown) {
        m_inspector = other;
        other->setParent(this);
        order.followSubviews();
        if (focus)
            focus->giveTo(other);
        other->restoreState(state); // what the settings know may be older, and the focus may have scrolled
    } else if (alive) {
        failures.collect([&] {
            if (other)
                takeOut(other);
            if (former)
                putInto(former);
            if (former && focus)
                focus->giveTo(former);
        });
    }
    const bool isReplaced = alive && other && m_inspector == other;
    ZelEventScope::dispose(isReplaced ? former : other);
    if (alive) {
        setUpdatesEnabled(true);
        if (isReplaced)
            Q_EMIT reloaded();
    }
    return failures.errors();
}

void ZelLiveInspector::putInto(ZelInspectorContainer *inspector)
{
    if (ZelView *view = inspector->view()) {
        static_cast<QVBoxLayout *>(layout())->insertWidget(1, view, 1);
        view->show();
    }
}

/// The view belongs to its controller again.
void ZelLiveInspector::takeOut(ZelInspectorContainer *inspector)
{
    if (!inspector->isViewLoaded())
        return;
    layout()->removeWidget(inspector->view());
    inspector->view()->setParent(nullptr);
}

// Errors

void ZelLiveInspector::setErrors(const QList<ZelReadError> &errors)
{
    const auto isSame = [](const ZelReadError &a, const ZelReadError &b) {
        return a.message == b.message && a.place.appendedTo({}) == b.place.appendedTo({});
    };
    if (std::equal(errors.begin(), errors.end(), m_errors.begin(), m_errors.end(), isSame))
        return;
    m_errors = errors;
    showErrors();
    Q_EMIT errorsChanged();
}

QString ZelLiveInspector::textOfError(const ZelReadError &error) const
{
    const ZelSourcePlace &place = error.place;
    if (place.isEmpty())
        return error.message;
    const QString root = QFileInfo(ZelXmlReader::pathOf(ZelBundle::sourceOf(url()))).canonicalPath();
    const QString relative = QDir(root).relativeFilePath(place.file);
    QString text = relative.startsWith(QStringLiteral("..")) ? place.file : relative;
    for (const qint64 number : {place.line, place.column}) {
        if (number > 0)
            text += u':' + QString::number(number);
    }
    return text + QStringLiteral(": ") + error.message;
}

void ZelLiveInspector::showErrors()
{
    QStringList lines;
    for (const ZelReadError &error : m_errors.first(std::min(m_errors.size(), g_shownErrors)))
        lines.append(textOfError(error));
    if (const qsizetype more = m_errors.size() - g_shownErrors; more > 0)
        lines.append(ZelLocalizedString("and %1 more").arg(more));
    m_errorLabel->setText(lines.join(u'\n'));
    m_errorLabel->setAccessibleDescription(m_errorLabel->text());
    m_errorLabel->setVisible(!lines.isEmpty());
}

void ZelLiveInspector::colorErrors()
{
    QPalette colors;
    colors.setColor(QPalette::WindowText, ZelThemeColor::error(palette()));
    m_errorLabel->setPalette(colors);
}

bool ZelLiveInspector::handleEvent(QEvent *event)
{
    const QPointer<ZelLiveInspector> alive(this);
    switch (event->type()) {
    case QEvent::Show:
        if (!m_wasLoaded)
            reload();
        break;
    case QEvent::LanguageChange:
        m_errorLabel->setAccessibleName(ZelLocalizedString("Errors in the description"));
        scheduleReload();
        break;
    case QEvent::PaletteChange:
        colorErrors();
        break;
    default:
        break;
    }
    return !alive || ZelGuarded<QWidget>::handleEvent(event);
}
