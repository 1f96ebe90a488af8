// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// "Creating DivX": how the film is made, and what is cleaned up afterwards.
#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <QRadioButton>

#include "localisation/language_document.h"
#include "ui/options/options_page.h"

namespace captoria {

class OptionsDivXPage final : public OptionsPage {
 public:
  // Both outlive the page.
  OptionsDivXPage(const LanguageDocument& language, Prompts& prompts, QWidget* parent);

  void Load(const Settings& settings) override;
  void Store(Settings& settings) const override;

 private:
  QWidget* BuildMethod();
  QLayout* BuildMuxerAlone(QGroupBox* frame);
  QLayout* BuildConverter(QGroupBox* frame);
  QWidget* BuildConsole();
  QWidget* BuildTemporaryFiles();
  QWidget* BuildOutput();
  void Connect();
  void EnableWhatCounts();
  void ProposeHeight(bool force);

  const LanguageDocument& language_;
  Prompts& prompts_;
  QRadioButton* muxer_alone_;
  QRadioButton* converter_;
  QCheckBox* pal_mode_;
  QCheckBox* force_height_;
  QSpinBox* height_;
  QCheckBox* show_console_;
  QComboBox* console_style_;
  QCheckBox* pause_;
  QCheckBox* wait_;
  QCheckBox* delete_all_;
  QCheckBox* delete_bitmaps_;
  QCheckBox* delete_other_;
  QRadioButton* add_underscore_;
  QRadioButton* replace_;
  QCheckBox* run_;
};

}  // namespace captoria
