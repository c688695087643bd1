// Shows the help topics in text browsers, which read them from files.
#include "desktop/qt/help_window.h"

#include <QEvent>
#include <QFile>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTextDocument>
#include <QUrl>
#include <QVBoxLayout>
#include <array>
#include <utility>

#include "desktop/qt/qt_text.h"
#include "host/names.h"
#include "util/paths.h"
#include "util/program_folder.h"
#include "wizard/help.h"

namespace discwright::desktop {

namespace {

constexpr const char* kStartPage = "start.html";

// Returns why the file cannot be read; empty if it can.
QString WhyNotReadable(const QString& path) {
  QFile file(path);
  if (file.open(QIODevice::ReadOnly)) return {};
  return QStringLiteral("The help file %1 cannot be read (%2): copy the folder \"help\" into the program folder again.")
      .arg(path, file.errorString());
}

// Returns the path of a topic. The folder of the topics is beside the help file that `request_path` names.
QString PathInHelp(const std::string& request_path, const std::string& name) {
  const std::string help_file = request_path.substr(0, request_path.rfind('>'));
  const std::string topics(util::NameInFolder(util::Item::kHelpTopics));
  return ToQt(host::PathToNative(util::ParentOf(help_file) + "\\" + topics + "\\" + name));
}

std::string FileOf(const host::HelpRequest& request) {
  if (request.command == host::HelpCommand::kTopicId) return std::to_string(request.topic_id) + ".html";
  return request.command == host::HelpCommand::kTopicFile ? request.topic_file : kStartPage;
}

// A text browser that says what is wrong when the file of a link is missing, where it would otherwise show nothing.
// It opens no links itself.
class HelpPage : public QTextBrowser {
 public:
  explicit HelpPage(const QString& name) {
    constexpr int kMargin = 10;
    constexpr int kIndent = 20;  // of a list
    setAccessibleName(name);
    setOpenLinks(false);
    document()->setDocumentMargin(kMargin);
    document()->setIndentWidth(kIndent);
  }

  QVariant loadResource(int type, const QUrl& name) override {
    const QString why = type == QTextDocument::HtmlResource ? WhyNotReadable(name.toLocalFile()) : QString();
    if (why.isEmpty()) return QTextBrowser::loadResource(type, name);
    return QString(QStringLiteral("<p>") + why.toHtmlEscaped() + QStringLiteral("</p>"));
  }
};

// Shows a file at its top, or at the anchor that the address names.
void Open(QTextBrowser& page, const QUrl& address) { page.setSource(address, QTextDocument::HtmlResource); }

// Shows a file. One that is shown already stays where the user has scrolled it.
void MoveTo(QTextBrowser& page, const QString& path) {
  const QUrl address = QUrl::fromLocalFile(path);
  if (page.source() != address) Open(page, address);
}

void ReadAgain(QTextBrowser& page) {
  if (page.source().isEmpty()) return;
  const int position = page.verticalScrollBar()->value();
  page.reload();
  page.verticalScrollBar()->setValue(position);
}

}  // namespace

// The members are destroyed in reverse order: each widget before the one that contains it.
struct HelpWindow::Parts {
  explicit Parts(QWidget* window)
      : rows(window),
        go_back(Qt::ALT | Qt::Key_Left, window),
        go_forward(Qt::ALT | Qt::Key_Right, window),
        switch_pane(Qt::Key_F6, window),
        leave(Qt::Key_Escape, window) {}

  std::array<QTextBrowser*, 3> Pages() { return {&contents, &index, &topic}; }

  QVBoxLayout rows;
  QShortcut go_back;
  QShortcut go_forward;
  QShortcut switch_pane;
  QShortcut leave;
  QHBoxLayout buttons;
  QPushButton back{QStringLiteral("&Back")};
  QPushButton forward{QStringLiteral("&Forward")};
  QPushButton start{QStringLiteral("&Start")};
  QSplitter panes;
  QTabWidget lists;
  HelpPage contents{QStringLiteral("Contents")};
  HelpPage index{QStringLiteral("Index")};
  HelpPage topic{QStringLiteral("Topic")};
};

HelpWindow::HelpWindow(std::function<void(const std::string&)> open_link)
    : open_link_(std::move(open_link)), parts_(std::make_unique<Parts>(this)) {
  setWindowTitle(ToQt(wizard::kHelpViewerTitle));
  setAttribute(Qt::WA_QuitOnClose, false);
  Arrange();
  Connect();
  parts_->topic.setFocus();
}

HelpWindow::~HelpWindow() = default;

// The sizes are multiples of the height of a line, so they follow the font of the desktop.
void HelpWindow::Arrange() {
  constexpr int kListWidth = 16;
  constexpr int kTopicWidth = 38;
  constexpr int kHeight = 37;
  Parts& parts = *parts_;
  parts.lists.addTab(&parts.contents, QStringLiteral("&Contents"));
  parts.lists.addTab(&parts.index, QStringLiteral("&Index"));
  parts.lists.setAccessibleName(QStringLiteral("Lists of the topics"));
  parts.lists.tabBar()->setAccessibleName(QStringLiteral("Contents or Index"));
  // The tabs have a frame of their own.
  for (QTextBrowser* list : {&parts.contents, &parts.index}) list->setFrameShape(QFrame::NoFrame);
  for (QPushButton* button : {&parts.back, &parts.forward, &parts.start}) {
    button->setAccessibleName(button->text().remove(QLatin1Char('&')));
    parts.buttons.addWidget(button);
  }
  parts.buttons.addStretch();
  parts.panes.addWidget(&parts.lists);
  parts.panes.addWidget(&parts.topic);
  parts.panes.setChildrenCollapsible(false);
  parts.panes.setStretchFactor(1, 1);
  parts.rows.addLayout(&parts.buttons);
  parts.rows.addWidget(&parts.panes, 1);
  const int line = fontMetrics().height();
  resize(QSize((kListWidth + kTopicWidth) * line, kHeight * line).boundedTo(screen()->availableSize()));
  parts.panes.setSizes({kListWidth * line, kTopicWidth * line});
}

void HelpWindow::Connect() {
  Parts& parts = *parts_;
  for (QTextBrowser* page : parts.Pages()) {
    connect(page, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) { Follow(link); });
  }
  connect(&parts.topic, &QTextBrowser::backwardAvailable, &parts.back, &QWidget::setEnabled);
  connect(&parts.topic, &QTextBrowser::forwardAvailable, &parts.forward, &QWidget::setEnabled);
  connect(&parts.back, &QPushButton::clicked, &parts.topic, &QTextBrowser::backward);
  connect(&parts.forward, &QPushButton::clicked, &parts.topic, &QTextBrowser::forward);
  connect(&parts.start, &QPushButton::clicked, this,
          [this] { Open(parts_->topic, parts_->contents.source().resolved(QUrl(QString::fromLatin1(kStartPage)))); });
  connect(&parts.go_back, &QShortcut::activated, &parts.topic, &QTextBrowser::backward);
  connect(&parts.go_forward, &QShortcut::activated, &parts.topic, &QTextBrowser::forward);
  connect(&parts.switch_pane, &QShortcut::activated, this, [this] { SwitchPane(); });
  connect(&parts.leave, &QShortcut::activated, this, [this] { close(); });
}

std::string HelpWindow::Show(const host::HelpRequest& request) {
  const QString path = PathInHelp(request.path, FileOf(request));
  if (const QString why = WhyNotReadable(path); !why.isEmpty()) return FromQt(why);
  MoveTo(parts_->contents, PathInHelp(request.path, "contents.html"));
  MoveTo(parts_->index, PathInHelp(request.path, "index.html"));
  MoveTo(parts_->topic, path);
  if (request.command == host::HelpCommand::kContents) parts_->lists.setCurrentWidget(&parts_->contents);
  if (request.command == host::HelpCommand::kIndex) parts_->lists.setCurrentWidget(&parts_->index);
  const bool was_open = isVisible();
  if (isMinimized()) setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  if (request.to_front) raise();
  if (!was_open) activateWindow();
  return "";
}

void HelpWindow::Follow(const QUrl& link) {
  if (link.isLocalFile()) {
    Open(parts_->topic, link);
  } else {
    open_link_(FromQt(link.toString(QUrl::FullyEncoded)));
  }
}

// Moves the keyboard between the list and the topic, so that the user need not go through all links.
void HelpWindow::SwitchPane() {
  QWidget* const next = parts_->topic.hasFocus() ? parts_->lists.currentWidget() : &parts_->topic;
  next->setFocus();
}

// A text browser gives links the colour that the palette has when the file is read.
void HelpWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::PaletteChange) return;
  for (QTextBrowser* page : parts_->Pages()) ReadAgain(*page);
}

}  // namespace discwright::desktop
