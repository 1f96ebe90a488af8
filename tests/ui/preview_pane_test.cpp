// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/preview/preview_pane.h"

#include <QElapsedTimer>
#include <cstdlib>
#include <functional>
#include <memory>

#include "tests/ui/workspace_fixture.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// Frame N of the film is filled with red 2 x N; there are 100, 25 a second.
constexpr const char* kFilm =
    "ffmpeg -v error -nostdin -y -f lavfi -i color=black:size=720x576:rate=25,format=gbrp,geq=r=2*N:g=0:b=0 "
    "-frames:v 100 -c:v rawvideo -pix_fmt bgr24 ";

SubtitleCue Cue(const char* number, const char* show, const char* text, const char* tag = "") {
  return {.Number = number, .Show = show, .Hide = "00:01:00,000", .Text = text, .Tag = tag};
}

class PreviewPaneTest : public WorkspaceFixture {
 protected:
  static void SetUpTestSuite() {
    TestApplication();
    films_ = std::make_unique<TestFolder>();
    ASSERT_EQ(std::system((kFilm + films_->File("a.avi")).c_str()), 0);
  }
  static void TearDownTestSuite() { films_.reset(); }

  PreviewPaneTest() {
    workspace_.preferences.settings.FrameForPreview = 50;
    pane_.resize(900, 800);
    pane_.show();
    QObject::connect(&pane_, &PreviewPane::Told, [this](const QString& text) { told_.push_back(text.toStdString()); });
  }

  void OpenFilm(const std::string& path) {
    workspace_.project.video.AviPath = path;
    pane_.SetVideo();
    pane_.SetPreviewOn(true);
  }

  template <typename Widget>
  Widget* Find(const char* name) {
    return pane_.findChild<Widget*>(name);
  }
  PictureView* Video() { return Find<PictureView>("VideoPicture"); }
  PictureView* Subtitle() { return Find<PictureView>("SubtitlePicture"); }

  bool Comes(const std::function<bool()>& what) {
    QElapsedTimer timer;
    for (timer.start(); !what() && timer.elapsed() < 10000;) {
      QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 10);
    }
    return what();
  }
  bool ShowsFrame(int number) {
    return Comes([&] { return !Video()->Image().isNull() && qRed(Video()->Image().pixel(0, 0)) == 2 * number; });
  }

  static inline std::unique_ptr<TestFolder> films_;
  PreviewPane pane_{workspace_, nullptr};
  std::vector<std::string> told_;
};

TEST_F(PreviewPaneTest, TheCueOverTheFilmIsTheBitmapThatIsWritten) {
  TrackStyle& style = workspace_.project.tracks.Current().style;
  style.HorPos = 30;
  style.FitFont = true;
  const SubtitleCue cue = Cue("1", "00:00:01,000", "Above\r\n<i>and</i> below", "14|40l");
  OpenFilm(films_->File("a.avi"));
  pane_.SetVertical(40, 480);
  pane_.ShowCue(&cue);
  ASSERT_TRUE(ShowsFrame(50));

  SubtitleBitmap own(*workspace_.canvas.Fonts(), FrameOf(workspace_.preferences.settings));
  own.RenderCueBitmap(cue.Text, StyleOfCue(style, cue.Tag));
  const cDIB& dib = own.Dib();
  EXPECT_EQ(Subtitle()->Image(), ToImage(ImageOf(dib)));
  const int left = 30 + (720 - dib.Width()) / 2;
  const int top = 576 - dib.Height() - static_cast<int>(std::lrint((576 - dib.Height()) * 40 / 480.0));
  int different = 0;
  for (int y = 0; y < 576; ++y) {
    for (int x = 0; x < 720; ++x) {
      QRgb expected = qRgb(100, 0, 0);
      const int u = x - left, v = y - top;
      if (u >= 0 && u < dib.Width() && v >= 0 && v < dib.Height()) {
        const Color color = dib.Palette()[dib.Row(v)[static_cast<std::size_t>(u)]];
        if (ColorNumber(color) != workspace_.preferences.settings.BackColor)
          expected = qRgb(color.red, color.green, color.blue);
      }
      different += Video()->Image().pixel(x, y) != expected ? 1 : 0;
    }
  }
  EXPECT_EQ(different, 0);

  pane_.ShowCue(nullptr);
  EXPECT_TRUE(Subtitle()->Image().isNull());
  QImage clean(720, 576, QImage::Format_RGB32);
  clean.fill(qRgb(100, 0, 0));
  EXPECT_EQ(Video()->Image(), clean);
}

TEST_F(PreviewPaneTest, StyleAndPositionAreFollowed) {
  const SubtitleCue cue = Cue("1", "00:00:01,000", "Hello");
  std::vector<int> heights;
  QObject::connect(&pane_, &PreviewPane::PictureHeightChanged, [&](int height) { heights.push_back(height); });
  OpenFilm(films_->File("a.avi"));
  pane_.SetVertical(0, 400);
  pane_.ShowCue(&cue);
  ASSERT_TRUE(ShowsFrame(50));
  const QImage low = Video()->Image();
  pane_.SetVertical(200, 400);
  EXPECT_NE(Video()->Image(), low);
  pane_.SetVertical(0, 400);
  EXPECT_EQ(Video()->Image(), low);
  workspace_.project.tracks.Current().style.font.size *= 2;
  pane_.Repaint();
  EXPECT_NE(Video()->Image(), low);
  ASSERT_EQ(heights.size(), 2u);
  EXPECT_EQ(heights[1], Subtitle()->Image().height());
  EXPECT_GT(heights[1], heights[0]);
  pane_.ShowCue(nullptr);
  EXPECT_GE(Subtitle()->minimumHeight(), heights[1]) << "the pane does not jump between cues";
}

TEST_F(PreviewPaneTest, TheSliderMovesThroughTheFilm) {
  OpenFilm(films_->File("a.avi"));
  ASSERT_TRUE(ShowsFrame(50));
  auto* slider = Find<QSlider>("FrameSlider");
  EXPECT_EQ(slider->value(), 50);
  EXPECT_EQ(slider->maximum(), 99);
  EXPECT_THAT(Find<QLabel>("FramePosition")->text().toStdString(), testing::EndsWith("00:00:02,000"));
  slider->setSliderDown(true);
  for (int frame = 51; frame <= 80; ++frame) slider->setSliderPosition(frame);
  EXPECT_TRUE(ShowsFrame(80));
  slider->setSliderDown(false);
  slider->triggerAction(QAbstractSlider::SliderSingleStepSub);
  EXPECT_TRUE(ShowsFrame(79));
  EXPECT_THAT(Find<QLabel>("FramePosition")->text().toStdString(), testing::StartsWith("79 "));
  EXPECT_THAT(told_, ElementsAre());
}

TEST_F(PreviewPaneTest, CuesAreShownAtTheirTimeWhenThatIsWanted) {
  const SubtitleCue first = Cue("1", "00:00:00,400", "One"), second = Cue("1", "00:00:03,079", "Two");
  OpenFilm(films_->File("a.avi"));
  pane_.ShowCue(&first);
  ASSERT_TRUE(ShowsFrame(50));
  Find<QCheckBox>("FrameAtCue")->click();
  EXPECT_TRUE(ShowsFrame(10));
  pane_.ShowCue(&second);
  EXPECT_TRUE(ShowsFrame(76));
  // The same cue drawn anew does not take away the frame gone to since.
  Find<QSlider>("FrameSlider")->setValue(20);
  pane_.ShowCue(&second);
  EXPECT_TRUE(ShowsFrame(20));
  pane_.SetVideo();
  EXPECT_TRUE(ShowsFrame(76));
}

TEST_F(PreviewPaneTest, TheFirstFrameIsMinusOneAndSwitchingFetchesAnew) {
  workspace_.preferences.settings.FrameForPreview = -1;
  OpenFilm(films_->File("a.avi"));
  EXPECT_TRUE(ShowsFrame(0));
  pane_.SetPreviewOn(false);
  EXPECT_TRUE(Video()->Image().isNull());
  EXPECT_FALSE(Video()->isVisible());
  workspace_.preferences.settings.FrameForPreview = 3;
  pane_.SetPreviewOn(true);
  EXPECT_TRUE(ShowsFrame(3));
}

TEST_F(PreviewPaneTest, WithoutAFilmItInvitesInTheLanguageOfNow) {
  pane_.SetPreviewOn(true);
  workspace_.language.document = *LanguageDocument::Parse("<L><Form1_Design lblOpenVideo='a film, please'/></L>");
  pane_.ShowCue(nullptr);
  EXPECT_EQ(Video()->Text(), "a film, please");
}

TEST_F(PreviewPaneTest, AFilmThatCannotBeShownIsToldAndCuesGoOn) {
  const SubtitleCue cue = Cue("1", "00:00:01,000", "Hello");
  const std::string broken = folder_.Put("b.avi", "no film");
  OpenFilm(broken);
  EXPECT_TRUE(Comes([&] { return !told_.empty(); }));
  EXPECT_THAT(told_, ElementsAre(HasSubstr(broken)));
  pane_.ShowCue(&cue);
  EXPECT_FALSE(Subtitle()->Image().isNull());
  EXPECT_EQ(Video()->Text().toStdString(), told_[0]);

  workspace_.preferences.settings.FrameForPreview = 1000;
  OpenFilm(films_->File("a.avi"));
  EXPECT_TRUE(Comes([&] { return told_.size() == 2; }));
  EXPECT_EQ(Video()->Text(), "Frame not found");
  Find<QSlider>("FrameSlider")->setValue(7);
  EXPECT_TRUE(ShowsFrame(7));
  EXPECT_EQ(Video()->Text(), "");
}

}  // namespace
}  // namespace captoria
