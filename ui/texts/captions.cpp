// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/texts/captions.h"

#include <QAbstractButton>
#include <QAction>
#include <QDialog>
#include <QDockWidget>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QTabBar>
#include <QTabWidget>
#include <QToolBar>
#include <algorithm>
#include <utility>

#include "localisation/window_texts.h"
#include "ui/texts/qt_text.h"

namespace captoria {
namespace {

constexpr const char* kToolTip = "_ToolTipText";

// "name", or "name_k" for member k of an array.
QString KeyOf(const QObject& object) {
  const QVariant index = object.property("Index");
  return index.isValid() ? object.objectName() + "_" + index.toString() : object.objectName();
}

class Walk {
 public:
  explicit Walk(QWidget& window) {
    const QString title = window.windowTitle();
    if (!window.property(kShowsData).toBool()) {
      Add(window.objectName(), title, [&window](const QString& text) { window.setWindowTitle(text); });
    }
    for (QObject* object : window.findChildren<QObject*>()) {
      // Qt gives such names to the parts of its own widgets.
      if (object->objectName().isEmpty() || object->objectName().startsWith("qt_")) continue;
      if (qobject_cast<QTabBar*>(object->parent()) != nullptr) continue;  // its scroll buttons
      const auto* widget = qobject_cast<QWidget*>(object);
      const bool is_of_dialog = widget != nullptr && qobject_cast<QDialog*>(widget->window()) != nullptr;
      if (!is_of_dialog || widget->window() == &window) Visit(*object);
    }
  }

  std::vector<Caption> Take() { return std::move(captions_); }

 private:
  void Add(const QString& key, const QString& text, std::function<void(const QString&)> set) {
    captions_.push_back({key, text, std::move(set)});
  }

  void Visit(QObject& object) {
    if (auto* action = qobject_cast<QAction*>(&object)) {
      // Other actions get their texts from VisitButtons.
      const bool in_menu = std::ranges::any_of(action->associatedObjects(), [](const QObject* shown_by) {
        return qobject_cast<const QMenu*>(shown_by) != nullptr;
      });
      if (in_menu && action->menu() == nullptr && !action->isSeparator() && !action->property(kShowsData).toBool()) {
        Add(KeyOf(*action), action->text(), [action](const QString& text) { action->setText(text); });
      }
    } else if (auto* bar = qobject_cast<QTabBar*>(&object)) {
      VisitTabs(*bar);
    } else if (auto* toolbar = qobject_cast<QToolBar*>(&object)) {
      VisitButtons(*toolbar);
    } else if (auto* widget = qobject_cast<QWidget*>(&object)) {
      VisitWidget(*widget);
    }
  }

  void VisitWidget(QWidget& widget) {
    const QString key = KeyOf(widget);
    if (!widget.property(kShowsData).toBool()) VisitCaption(key, widget);
    const QString name = widget.accessibleName();
    if (qobject_cast<QToolBar*>(widget.parentWidget()) != nullptr && qobject_cast<QAbstractButton*>(&widget) != nullptr)
      return;  // VisitButtons sets it
    Add(key + kToolTip, widget.toolTip(), [&widget](const QString& text) { widget.setToolTip(text); });
    Add(key + "_AccessibleName", name, [&widget](const QString& text) { widget.setAccessibleName(text); });
  }

  void VisitCaption(const QString& key, QWidget& widget) {
    if (auto* label = qobject_cast<QLabel*>(&widget)) {
      Add(key, label->text(), [label](const QString& text) { label->setText(text); });
    } else if (auto* button = qobject_cast<QAbstractButton*>(&widget)) {
      if (qobject_cast<QToolBar*>(button->parentWidget()) != nullptr) return;
      Add(key, button->text(), [button](const QString& text) { button->setText(text); });
    } else if (auto* group = qobject_cast<QGroupBox*>(&widget)) {
      Add(key, group->title(), [group](const QString& text) { group->setTitle(text); });
    } else if (auto* menu = qobject_cast<QMenu*>(&widget)) {
      Add(key, menu->title(), [menu](const QString& text) { menu->setTitle(text); });
    } else if (auto* dock = qobject_cast<QDockWidget*>(&widget)) {
      Add(key, dock->windowTitle(), [dock](const QString& text) { dock->setWindowTitle(text); });
    }
  }

  void VisitTabs(QTabBar& bar) {
    for (int i = 0; i < bar.count(); ++i) {
      const QString key = KeyOf(bar) + "_" + QString::number(i + 1);
      Add(key, bar.tabText(i), [&bar, i](const QString& text) { bar.setTabText(i, text); });
      Add(key + kToolTip, bar.tabToolTip(i), [&bar, i](const QString& text) { bar.setTabToolTip(i, text); });
    }
    Add(KeyOf(bar) + "_AccessibleName", bar.accessibleName(),
        [&bar](const QString& text) { bar.setAccessibleName(text); });
  }

  // An action may be in a menu too. The menu shows its text; the button shows its icon text and tool tip.
  void VisitButtons(QToolBar& toolbar) {
    int i = 0;
    for (QAction* action : toolbar.actions()) {
      QWidget* button = toolbar.widgetForAction(action);
      if (action->isSeparator() || qobject_cast<QAbstractButton*>(button) == nullptr) continue;
      const QString key = KeyOf(toolbar) + "_" + QString::number(++i);
      if (toolbar.toolButtonStyle() != Qt::ToolButtonIconOnly) {
        Add(key, action->iconText(), [action](const QString& text) { action->setIconText(text); });
      }
      if (action->property(kShowsData).toBool()) continue;
      Add(key + kToolTip, action->toolTip(), [action, button](const QString& text) {
        action->setToolTip(text);
        button->setAccessibleName(text);
      });
    }
  }

  std::vector<Caption> captions_;
};

}  // namespace

std::vector<Caption> CaptionsOf(QWidget& window) {
  std::vector<Caption> captions = Walk(window).Take();
  std::erase_if(captions, [](const Caption& caption) { return caption.text.isEmpty(); });
  return captions;
}

void WindowCaptions::Apply(const LanguageDocument& language) {
  const std::string element = DesignSection(FromQt(window_.objectName()));
  for (const Caption& caption : Walk(window_).Take()) {
    const QString& built_in = built_in_.try_emplace(caption.key, caption.text).first->second;
    const auto text = language.Text(element, FromQt(caption.key));
    const QString shown = text ? ToQt(*text) : built_in;
    if (shown != caption.text) caption.set(shown);
  }
}

void ApplyCaptions(QWidget& window, const LanguageDocument& language) { WindowCaptions(window).Apply(language); }

}  // namespace captoria
