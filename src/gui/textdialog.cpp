#include "gui/textdialog.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace gui {

TextDialog::TextDialog(QWidget* parent, const QString& title, const QString& html, QSize size)
    : QDialog(parent) {
    setWindowTitle(title);
    auto* layout = new QVBoxLayout(this);
    auto* text = new QTextBrowser(this);
    text->setObjectName("text");
    text->setOpenExternalLinks(false);
    text->setHtml(html);
    layout->addWidget(text);
    auto* buttons = new QDialogButtonBox(this);
    QPushButton* ok = buttons->addButton(tr("OK"), QDialogButtonBox::AcceptRole);
    ok->setObjectName("okButton");
    ok->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    layout->addWidget(buttons);
    resize(size);
}

} // namespace gui
