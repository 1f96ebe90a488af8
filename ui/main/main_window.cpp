// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/main/main_window.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QStatusBar>
#include <QVBoxLayout>
#include <utility>

#include "app/language_commands.h"
#include "app/open_video.h"
#include "app/placement_commands.h"
#include "app/safe_area_commands.h"
#include "base/path_text.h"
#include "localisation/window_texts.h"
#include "settings/key_table.h"
#include "ui/dialogs/select_subs_dialog.h"
#include "ui/dialogs/side_scroll.h"
#include "ui/dialogs/welcome_dialog.h"
#include "ui/language_editor/create_lang_dialog.h"
#include "ui/main/start_page.h"
#include "ui/options/options_dialog.h"
#include "ui/texts/qt_text.h"

namespace captoria {
namespace {

// "Film.srt - Captoria ver. 3.5.0 by Halvard"
QString TitleOf(const Workspace& workspace) {
  const SubtitleTrack& track = workspace.project.tracks.Current();
  const QString file = track.HasFile() ? ToQt(GetFileNameOnly(track.path)) + " - " : QString{};
  return file + kProgramTitle + " ver. " CAPTORIA_VERSION " by Halvard";
}

QStringList FilesOf(const QMimeData* data) {
  QStringList files;
  for (const QUrl& url : data->urls()) {
    if (url.isLocalFile()) files.append(url.toLocalFile());
  }
  return files;
}

}  // namespace

Form1::Form1(Workspace& workspace, WindowView& view) : workspace_(workspace), view_(view) {
  setObjectName("Form1");
  setProperty(kShowsData, true);
  setAcceptDrops(true);
  state_ = new WindowState(workspace_, this);
  Build();
  setWindowIcon(QIcon(":/icons/captoria.svg"));
  ConnectMenu();
  ConnectParts();
  menu_->preview->setChecked(workspace_.preferences.settings.Preview);
  preview_->SetPreviewOn(workspace_.preferences.settings.Preview);
  RestoreLanguage(workspace_);
  ShowVideo();
  state_->Restore();
}

void Form1::Build() {
  style_ = new StylePanel(workspace_, this);
  auto* toolbar = addToolBar("Commands");
  toolbar->setObjectName("Toolbar2");
  menu_ = new MainMenu(menuBar(), toolbar, style_->StyleActions(), this);
  system_ = new QComboBox(toolbar);
  system_->setObjectName("Combo3");
  for (const VideoSystem system : {VideoSystem::Ntsc, VideoSystem::Pal}) system_->addItem(ToQt(NameOf(system)));
  system_->setToolTip("Video system for active avi file");
  system_->setAccessibleName(system_->toolTip());
  toolbar->addSeparator();
  toolbar->addWidget(system_);

  pages_ = new QStackedWidget(this);
  pages_->addWidget(new StartPage(menu_->open_avi, menu_->open_srt, pages_));
  pages_->addWidget(BuildWorkPage());
  jobs_ = new JobBar(workspace_.language.document, this);
  auto* central = new QWidget(this);
  auto* layout = new QVBoxLayout(central);
  layout->setContentsMargins({});
  layout->addWidget(pages_, 1);
  layout->addWidget(jobs_);
  setCentralWidget(central);
  BuildStreams();
  status_ = new StatusLabels(statusBar(), workspace_.language.document);
  commands_ = new WindowCommands(workspace_, *jobs_, this);
  state_->KeepRecent(menu_->recent);
  languages_ = new LanguagesMenu(workspace_, menu_->languages, menu_->no_language);
  batch_menu_ = new BatchCommandsMenu(workspace_, menu_->batch_commands, menu_->no_batch_file);
}

QWidget* Form1::BuildWorkPage() {
  tracks_ = new TrackTabs(workspace_, pages_);
  preview_ = new PreviewPane(workspace_, pages_);
  auto* lists = new QSplitter(Qt::Vertical, pages_);
  lists->setObjectName("lists");
  lists->addWidget(tracks_);
  lists->addWidget(preview_);
  lists->setStretchFactor(1, 1);
  lists->setChildrenCollapsible(false);
  auto* sides = new QSplitter(Qt::Horizontal, pages_);
  sides->setObjectName("sides");
  sides->addWidget(lists);
  sides->addWidget(new SideScroll(style_, sides));
  sides->setStretchFactor(0, 1);
  sides->setChildrenCollapsible(false);
  sides->setSizes({QWIDGETSIZE_MAX, 1});  // until somebody drags it, the style has just the room it needs
  state_->Keep(lists);
  state_->Keep(sides);
  state_->Keep(tracks_->List()->header(), "cues");
  return sides;
}

void Form1::BuildStreams() {
  streams_ = new Info(workspace_.prompts, this);
  streams_->setObjectName("Info1");
  streams_dock_ = new QDockWidget("Avi info (streams)", this);
  streams_dock_->setObjectName("AviInfoPanel");
  streams_dock_->setWidget(streams_);
  addDockWidget(Qt::BottomDockWidgetArea, streams_dock_);
  constexpr int kHeight = 150;  // of a few streams; the user may drag it
  resizeDocks({streams_dock_}, {kHeight}, Qt::Vertical);
  streams_dock_->hide();
}

void Form1::ConnectMenu() {
  const auto on = [this](QAction* action, auto slot) { connect(action, &QAction::triggered, this, slot); };
  on(menu_->open_avi, [this] { commands_->OpenVideo({}); });
  on(menu_->open_srt, [this] { commands_->OpenSubtitle({}); });
  on(menu_->close_srt, [this] { commands_->CloseSubtitles(); });
  on(menu_->batch_convert, [this] { commands_->BatchConvert(); });
  on(menu_->options, [this] { ShowOptions(); });
  on(menu_->exit, [this] { close(); });
  on(menu_->make_divx, [this] { commands_->MakeDivX(); });
  on(menu_->fit_font, [this](bool fit) { SetFitFont(fit); });
  on(menu_->only_outside, [this](bool only) { ShowOnlyOutside(only); });
  on(menu_->create_lang, [this] { CreateLanguage(); });
  on(menu_->welcome, [this] { frmWelcome(workspace_.language.document, this).exec(); });
  on(menu_->about, [this] { commands_->ShowAbout(); });
  on(menu_->left, [this] { SetAlignment(Alignment::Left); });
  on(menu_->center, [this] { SetAlignment(Alignment::Center); });
  on(menu_->right, [this] { SetAlignment(Alignment::Right); });
  on(menu_->set_pos_align, [this] { SetPosAlign(); });
  on(menu_->select_subs, [this] { SelectSubs(); });
  tracks_->List()->addActions(menu_->selected_subs->actions());  // for their shortcuts
  on(menu_->preview, [this](bool shown) {
    workspace_.preferences.settings.Preview = shown;
    preview_->SetPreviewOn(shown);
  });
  connect(menu_->stream_info, &QAction::toggled, streams_dock_, &QDockWidget::setVisible);
  connect(streams_dock_, &QDockWidget::visibilityChanged, menu_->stream_info, &QAction::setChecked);
  connect(state_, &WindowState::RecentChosen, commands_, &WindowCommands::OpenVideo);
  connect(commands_, &WindowCommands::VideoOpened, state_, &WindowState::AddRecent);
}

void Form1::ConnectParts() {
  connect(&view_, &WindowView::TracksChanged, this, &Form1::ShowTracks);
  connect(&view_, &WindowView::VideoChanged, this, &Form1::ShowVideo);
  connect(&view_, &WindowView::StreamsWanted, streams_dock_, &QDockWidget::show);
  connect(&view_, &WindowView::CommandsRun, this, &Form1::ShowCommandsRun);
  connect(&view_, &WindowView::LanguageChanged, this, &Form1::ShowLanguage);
  connect(&view_, &WindowView::Warned, status_, &StatusLabels::Tell);
  connect(tracks_, &TrackTabs::TrackChosen, this, &Form1::ShowTracks);
  connect(tracks_, &TrackTabs::CueChosen, this, [this] {
    ShowCue();
    const SubtitleCue* cue = tracks_->CurrentCue();
    if (cue != nullptr && !cue->Tag.empty()) status_->Tell(tracks_->TagText(*cue));
  });
  connect(tracks_, &TrackTabs::SelectionChanged, this, &Form1::ShowCounts);
  connect(tracks_, &TrackTabs::MenuWanted, this, [this](const QPoint& at) {
    if (!workspace_.project.tracks.Current().IsIdx()) menu_->selected_subs->popup(at);
  });
  connect(style_, &StylePanel::StyleChanged, this, &Form1::ShowCue);
  connect(style_, &StylePanel::FontChanged, this, &Form1::CheckSafeAreaAgain);
  connect(preview_, &PreviewPane::Told, status_, &StatusLabels::Tell);
  connect(system_, &QComboBox::activated, this, [this](int index) {
    ChooseVideoSystem(workspace_.project, index == 0);
    ShowSystem();
  });
  connect(jobs_, &JobBar::Began, this, [this] { SetBusy(true); });
  connect(jobs_, &JobBar::Ended, this, [this] { SetBusy(false); });
}

void Form1::ShowTracks() {
  const SubtitleTrack& track = workspace_.project.tracks.Current();
  pages_->setCurrentIndex(
      workspace_.project.video.AviPath.empty() && !track.HasFile() && workspace_.project.tracks.Count() == 1 ? 0 : 1);
  tracks_->ShowTracks();
  style_->LoadCorrectValues();
  style_->EnableButtons(!track.IsIdx());
  for (QAction* action : {menu_->fit_font, menu_->only_outside}) action->setEnabled(!track.IsIdx());
  menu_->fit_font->setChecked(track.style.FitFont);
  menu_->only_outside->setChecked(workspace_.project.only_outside);
  setWindowTitle(TitleOf(workspace_));
  ShowCounts();
  ShowCue();
}

void Form1::ShowVideo() {
  streams_->Clear();
  for (const StreamRow& row : workspace_.project.video.streams) {
    streams_->AddLine({ToQt(TextOf(row.type)), ToQt(row.text)});
  }
  preview_->SetVideo();
  ShowSystem();
}

void Form1::ShowSystem() {
  system_->setCurrentIndex(workspace_.project.video.VideoSystem == VideoSystem::Pal ? 1 : 0);
  // Before there is a video or a subtitle, nothing is worth the time that finding all fonts takes.
  if (!workspace_.project.video.AviPath.empty()) {
    const auto bitmap = workspace_.canvas.Bitmap(FrameOf(workspace_.preferences.settings));
    const int subtitle = bitmap ? (*bitmap)->Dib().Height() : 0;
    style_->SetVerticalMaximum(workspace_.project.video.VideoHeight() - subtitle);
  }
  ShowTracks();
}

void Form1::ShowCue() {
  const SubtitleTrack& track = workspace_.project.tracks.Current();
  const SubtitleCue* cue = track.IsIdx() ? nullptr : tracks_->CurrentCue();
  style_->ShowOwn(cue == nullptr ? Placement{} : ReadPlacement(cue->Tag));
  if (cue != nullptr) style_->ShowVerticalPosition(ReadPlacement(cue->Tag).position.value_or(track.style.VertPos));
  preview_->SetVertical(style_->VerticalPosition(), style_->VerticalMaximum());
  preview_->ShowCue(cue);
}

void Form1::ShowCounts() {
  const SubtitleTrack& track = workspace_.project.tracks.Current();
  const auto outside = track.IsIdx() ? std::nullopt : std::optional{static_cast<int>(track.outside.size())};
  status_->ShowOutside(outside, track.style.FitFont);
  status_->ShowSelected(tracks_->SelectedCount());
}

void Form1::ShowOnlyOutside(bool only) {
  workspace_.project.only_outside = only;
  ShowTracks();
}

void Form1::SetFitFont(bool fit) {
  if (workspace_.project.tracks.Current().style.FitFont != fit) ToggleFitFont(workspace_.project);
  CheckSafeAreaAgain();
}

void Form1::CheckSafeAreaAgain() {
  if (workspace_.project.tracks.Current().IsRendered()) {
    const auto checked = CheckSafeArea(workspace_);
    if (!checked) {
      workspace_.reporter.Note({.kind = FindingKind::OutsideSafeArea, .message = checked.error().message});
    }
  }
  ShowTracks();
}

void Form1::SetAlignment(Alignment align) {
  SetAlignForSelectedSubs(workspace_.project, align);
  tracks_->Refresh();
  ShowCue();
}

PositionDialogStart Form1::PlacementStart() const {
  return {tracks_->CurrentCue(), style_->VerticalPosition(), style_->VerticalMaximum()};
}

void Form1::SetPosAlign() {
  if (!workspace_.project.tracks.Current().IsRendered()) return;
  Form3 dialog(workspace_, CommandMode::Apply, PlacementStart(), this);
  const auto show = [this] {
    tracks_->Refresh();
    ShowCue();
  };
  connect(&dialog, &Form3::Previewed, this, show);
  dialog.exec();
  show();
}

void Form1::SelectSubs() {
  if (!workspace_.project.tracks.Current().IsRendered()) return;
  frmSelectSubs(workspace_, CommandMode::Apply, this).exec();
  tracks_->ShowSelection();
  ShowCounts();
}

void Form1::ShowOptions() {
  FileRegistry registry(JoinPath(workspace_.folders.data, "Captoria.registry"));
  ContextMenuEntry entry(registry, FileActions(ProcessEnvironment()), VerbProgram(workspace_.folders.executable));
  Form2 dialog(workspace_, entry, PlacementStart(), this);
  dialog.exec();
  if (dialog.BatchFilesChanged()) batch_menu_->ReloadBatch();
  const OptionsEffect& effect = dialog.Effect();
  if (effect.frame_changed || effect.back_color_or_width_changed) {
    ShowVideo();
  } else if (effect.list_fonts_changed) {
    ShowTracks();
  }
}

void Form1::CreateLanguage() {
  frmCreateLang dialog(workspace_, CAPTORIA_VERSION, this);
  connect(&dialog, &frmCreateLang::Saved, this,
          [this](const std::string& base) { (void)LoadNewLang(workspace_, base); });
  dialog.exec();
  languages_->Reload();
}

void Form1::ShowCommandsRun(const QString& file_name, int selected) {
  tracks_->Refresh();
  tracks_->ShowSelection();
  ShowCue();
  status_->TellBatch(file_name);
  status_->ShowSelected(selected);
}

void Form1::SetBusy(bool busy) {
  pages_->setEnabled(!busy);
  menuBar()->setEnabled(!busy);
  streams_dock_->setEnabled(!busy);
  for (QToolBar* bar : findChildren<QToolBar*>()) bar->setEnabled(!busy);
  if (busy) return;
  if (closing_) QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
}

void Form1::ShowLanguage() {
  look_.Apply(workspace_.language.document);
  captions_.Apply(workspace_.language.document);
  languages_->ShowCurrent();
  status_->ShowLanguage(ToQt(LanguageCredit(workspace_.language.document, FromQt(status_->Language()))));
  streams_->SetTitle1(ToQt(TextOf(workspace_.language.document, window_texts::kStream)));
  streams_->SetTitle2(ToQt(TextOf(workspace_.language.document, window_texts::kInformation)));
  ShowTracks();
}

void Form1::Welcome() {
  if (!workspace_.preferences.settings.ShowWelcome) return;
  frmWelcome(workspace_.language.document, this).exec();
  const auto stored = workspace_.preferences.Store(keys::kShowWelcome, "0");
  if (!stored) workspace_.reporter.Note({.kind = FindingKind::NotSaved, .message = stored.error().message});
}

void Form1::closeEvent(QCloseEvent* event) {
  if (jobs_->IsBusy()) {
    const bool stop =
        workspace_.prompts.AskYesNo(kProgramTitle, TextOf(workspace_.language.document, window_texts::kStopJob));
    closing_ = stop && jobs_->IsBusy();  // it may have ended while the question stood
    if (closing_) jobs_->Stop();
    if (closing_ || !stop) return event->ignore();
  }
  state_->Save();
  const auto saved = SaveAll(workspace_.preferences, workspace_.project);
  if (!saved) workspace_.reporter.Tell({.kind = FindingKind::NotSaved, .message = saved.error().message});
  event->accept();
}

void Form1::dragEnterEvent(QDragEnterEvent* event) {
  if (!jobs_->IsBusy() && !FilesOf(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void Form1::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  commands_->OpenFiles(FilesOf(event->mimeData()));
}

}  // namespace captoria
