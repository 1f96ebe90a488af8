// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/dialogs/about_dialog.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QSysInfo>
#include <QVBoxLayout>
#include <utility>

#include "app/workspace.h"
#include "ui/dialogs/link_label.h"
#include "ui/texts/qt_text.h"

namespace captoria {

frmAbout::frmAbout(ProgramFacts facts, Prompts& prompts, DocumentOpener& opener, QWidget* parent)
    : QDialog(parent), facts_(std::move(facts)), prompts_(prompts) {
  setObjectName("frmAbout");
  setWindowTitle(QStringLiteral("About ") + kProgramTitle);
  constexpr int kPicture = 64;
  auto* picture = new QLabel(this);
  picture->setPixmap(QIcon(":/icons/captoria.svg").pixmap(kPicture, kPicture));
  auto* texts = new QVBoxLayout;
  AddTexts(texts);
  AddLinks(texts, opener);
  auto* top = new QHBoxLayout;
  top->addWidget(picture, 0, Qt::AlignTop);
  top->addSpacing(kPicture / 4);
  top->addLayout(texts, 1);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addStretch();
  AddButtons(layout);
}

void frmAbout::AddTexts(QLayout* layout) {
  const auto add = [&](const char* name, const QString& text) {
    auto* label = new QLabel(text, this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(label);
    return label;
  };
  QLabel* title = add("Label1", QStringLiteral("%1 for Windows XP").arg(kProgramTitle));
  QFont large = title->font();
  large.setBold(true);
  large.setPointSizeF(large.pointSizeF() * 1.3);
  title->setFont(large);
  add("Label2", QStringLiteral("Version ") + ToQt(facts_.version));
  add("Label3", QStringLiteral("%1 needs").arg(kProgramTitle));
}

void frmAbout::AddLinks(QLayout* layout, DocumentOpener& opener) {
  const auto add = [&](const char* name, const QString& text, const std::string& address) {
    auto* link = new LinkLabel(opener, LinkLabel::AddressIn::ToolTip, this);
    link->setObjectName(name);
    link->setText(text);
    link->setToolTip(ToQt(address));
    connect(link, &LinkLabel::NotOpened, this,
            [this](const QString& reason) { prompts_.ShowMessage(kProgramTitle, FromQt(reason)); });
    layout->addWidget(link);
    layout->setAlignment(link, Qt::AlignLeading);  // so that only the words react to a click
    return link;
  };
  add("Label4", "BmpToxSub", facts_.bmptoxsub_page);
  add("Label5", "DivXMux", facts_.divxmux_page);
  add("Label6", "Homepage", facts_.home_page)->setHidden(facts_.home_page.empty());
}

void frmAbout::AddButtons(QLayout* layout) {
  auto* information = new QPushButton("&System Info...", this);
  information->setObjectName("Command1");
  information->setAutoDefault(false);
  connect(information, &QPushButton::clicked, this, &frmAbout::StartSysInfo);
  auto* ok = new QPushButton("OK", this);
  ok->setObjectName("OKButton");
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(information);
  buttons->addStretch();
  buttons->addWidget(ok);
  layout->addItem(buttons);
  ok->setFocus();
}

void frmAbout::StartSysInfo() {
  std::string text = FromQt(QSysInfo::prettyProductName() + ", " + QSysInfo::kernelType() + " " +
                            QSysInfo::kernelVersion() + ", " + QSysInfo::currentCpuArchitecture());
  text += std::string("\nQt ") + qVersion();
  for (const std::string& library : facts_.libraries) text += "\n" + library;
  prompts_.ShowMessage(kProgramTitle, text);
}

}  // namespace captoria
