#include "ui/frame/manual.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QHBoxLayout>
#include <QListWidget>
#include <QRegularExpression>
#include <QScreen>
#include <QStringList>
#include <QTextBrowser>
#include <algorithm>

#include "ui/controls/widgets.h"

// Resources of a static library are registered on demand; the macro must stand outside namespaces.
static void RegisterPages() {
  Q_INIT_RESOURCE(manual);
}

namespace vistaplot {
namespace {

constexpr const char* kPages[] = {"guide.md", "indicators.md", "calculations.md"};
constexpr double kMostOfDisplay = 0.9;
constexpr QSize kWanted(980, 680);
constexpr int kIndent = 2;  ///< blanks before a section in the list that opens no page

constexpr double kTextMargin = 12.0;

/// Links to documents that do not come with the program become plain text.
QString WithLinksInside(QString line) {
  static const QRegularExpression outside(
      QStringLiteral("\\[([^\\]]+)\\]\\((?!(?:guide|indicators|calculations)\\.md\\))[^)]*\\)"));
  return line.replace(outside, QStringLiteral("\\1"));
}

bool IsHeading(const QString& line) {
  return line.startsWith(QLatin1String("# ")) || line.startsWith(QLatin1String("## "));
}

/// The list of sections at the left, the text of the chosen one at the right.
class ManualBox : public QDialog {
 public:
  explicit ManualBox(QWidget* owner) : QDialog(owner), sections_(ManualSections()) {
    setWindowTitle(QStringLiteral("Manual"));
    FillList();
    text_->setAccessibleName(QStringLiteral("Text"));
    text_->setOpenLinks(false);
    text_->document()->setDocumentMargin(kTextMargin);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(list_, &QListWidget::currentRowChanged, this, [this](int row) { ShowSection(row); });
    connect(text_, &QTextBrowser::anchorClicked, this, [this](const QUrl& to) { Follow(to); });
    auto* columns = new QHBoxLayout;
    columns->addWidget(list_);
    columns->addWidget(text_, 1);
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(columns);
    rows->addWidget(buttons);
    resize(kWanted.boundedTo(screen()->availableSize() * kMostOfDisplay));
  }

  void Open(const QString& heading) {
    list_->setCurrentRow(RowWhere([&](const ManualSection& s) { return s.title == heading; }));
    list_->setFocus();
  }

 private:
  void FillList() {
    list_->setAccessibleName(QStringLiteral("Sections"));
    for (const ManualSection& section : sections_) {
      list_->addItem(QString(section.opens_page ? 0 : kIndent, u' ') + section.title);
      QFont font = list_->font();
      font.setBold(section.opens_page);
      list_->item(list_->count() - 1)->setFont(font);
    }
    const int width = list_->sizeHintForColumn(0) + 2 * list_->frameWidth();
    list_->setFixedWidth(width + style()->pixelMetric(QStyle::PM_ScrollBarExtent));
  }

  template <class Wanted>
  int RowWhere(Wanted&& wanted) const {
    const auto found = std::find_if(sections_.begin(), sections_.end(), wanted);
    return found == sections_.end() ? 0 : static_cast<int>(found - sections_.begin());
  }

  void ShowSection(int row) {
    text_->setMarkdown(sections_.at(static_cast<std::size_t>(row)).text);
  }

  // Links lead from page to page.
  void Follow(const QUrl& to) {
    list_->setCurrentRow(RowWhere([&](const ManualSection& s) { return s.page == to.fileName(); }));
  }

  std::vector<ManualSection> sections_;
  QListWidget* list_ = new QListWidget;
  QTextBrowser* text_ = new QTextBrowser;
};

}  // namespace

std::vector<ManualSection> ManualSections() {
  RegisterPages();
  std::vector<ManualSection> sections;
  for (const char* page : kPages) {
    QFile file(QStringLiteral(":/manual/") + QLatin1String(page));
    if (!file.open(QIODevice::ReadOnly)) continue;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    for (const QString& line : lines) {
      if (line.startsWith(QLatin1String("!["))) continue;
      if (IsHeading(line)) {
        sections.push_back({.page = QLatin1String(page),
                            .title = line.mid(line.indexOf(u' ') + 1),
                            .text = {},
                            .opens_page = line.startsWith(QLatin1String("# "))});
      }
      if (!sections.empty()) sections.back().text += WithLinksInside(line) + u'\n';
    }
  }
  return sections;
}

void ShowManual(QWidget* owner, std::string_view heading) {
  ManualBox box(owner);
  box.Open(QtText(heading));
  box.exec();
}

}  // namespace vistaplot
