// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/preview/frame_loader.h"

#include <gmock/gmock.h>

#include <QElapsedTimer>
#include <cstdlib>
#include <functional>
#include <memory>
#include <vector>

#include "tests/support/qt_application.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::ElementsAre;

void Ffmpeg(const TestFolder& folder, const std::string& arguments) {
  const std::string command = "cd '" + folder.Path() + "' && ffmpeg -v error -nostdin -y " + arguments;
  ASSERT_EQ(std::system(command.c_str()), 0) << command;
}

// Frame N of these is filled with red 8 x N.
void MakeReddening(const TestFolder& folder, const std::string& name) {
  Ffmpeg(folder,
         "-f lavfi -i color=black:size=64x48:rate=25,format=gbrp,geq=r=8*N:g=0:b=0 -f lavfi -i sine "
         "-frames:v 30 -t 2 -c:v rawvideo -pix_fmt bgr24 -c:a pcm_s16le -f avi " +
             name);
}

class FrameLoaderTest : public testing::Test {
 protected:
  // Its last frame takes a while to decode, as there is only one key frame.
  static void SetUpTestSuite() {
    TestApplication();
    slow_ = std::make_unique<TestFolder>();
    Ffmpeg(*slow_,
           "-f lavfi -i testsrc2=size=720x576:rate=25 -c:v mpeg4 -g 600 -sc_threshold 1000000000 -frames:v 600 a.avi");
  }
  static void TearDownTestSuite() { slow_.reset(); }

  // What the loader answers, as text.
  std::unique_ptr<FrameLoader> Start() {
    auto loader = std::make_unique<FrameLoader>();
    QObject::connect(loader.get(), &FrameLoader::Opened, [this](int width, int height, qint64 frames, qint64 duration) {
      Note(QString("%1x%2, %3 frames, %4 ms").arg(width).arg(height).arg(frames).arg(duration));
    });
    QObject::connect(loader.get(), &FrameLoader::FrameReady, [this](qint64 number, const QImage& image) {
      Note(QString("frame %1, red %2").arg(number).arg(qRed(image.pixel(5, 5))));
    });
    QObject::connect(loader.get(), &FrameLoader::Failed, [this](const QString& why) { Note(why); });
    return loader;
  }

  // Runs the window's thread until there are `count` answers, and then a little longer for one too many.
  std::vector<std::string> Answers(std::size_t count) {
    const auto run = [](int ms, const std::function<bool()>& done) {
      for (QElapsedTimer timer = Started(); timer.elapsed() < ms && !done();) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 10);
      }
    };
    run(20000, [&] { return answers_.size() >= count; });
    run(100, [] { return false; });
    return std::exchange(answers_, {});
  }

  static QElapsedTimer Started() {
    QElapsedTimer timer;
    timer.start();
    return timer;
  }

  static void Pause(int ms) { std::this_thread::sleep_for(std::chrono::milliseconds{ms}); }

  TestFolder folder_;
  static inline std::unique_ptr<TestFolder> slow_;

 private:
  void Note(const QString& answer) { answers_.push_back(answer.toStdString()); }

  std::vector<std::string> answers_;
};

TEST_F(FrameLoaderTest, TellsTheFilmAndThenItsFrames) {
  MakeReddening(folder_, "a\xFF.avi");  // a name that is no text
  const auto loader = Start();
  loader->Open(folder_.File("a\xFF.avi"));
  loader->Request(7);
  // Its sound lasts two seconds.
  EXPECT_THAT(Answers(2), ElementsAre("64x48, 30 frames, 1200 ms", "frame 7, red 56"));
  loader->Request(29);
  EXPECT_THAT(Answers(1), ElementsAre("frame 29, red 232"));
}

TEST_F(FrameLoaderTest, OnlyTheNewestRequestIsAnswered) {
  const auto loader = Start();
  loader->Open(slow_->File("a.avi"));
  EXPECT_EQ(Answers(1).size(), 1u);
  for (const int frame : {590, 580, 570}) {
    loader->Request(frame);
    Pause(5);
  }
  const QElapsedTimer timer = Started();
  loader->Request(1);
  const auto answers = Answers(1);
  EXPECT_LT(timer.elapsed(), 500);
  ASSERT_EQ(answers.size(), 1u);
  EXPECT_EQ(answers[0].substr(0, 8), "frame 1,");
}

TEST_F(FrameLoaderTest, NothingComesOfAFilmThatWasClosed) {
  MakeReddening(folder_, "a.avi");
  const auto loader = Start();
  loader->Open(folder_.File("a.avi"));
  loader->Request(7);
  Pause(300);  // the answers are on their way
  loader->Close();
  loader->Request(8);
  EXPECT_THAT(Answers(0), ElementsAre());
}

TEST_F(FrameLoaderTest, EndsAtOnceWhateverItIsDoing) {
  for (const int ms : {0, 5, 30, 60, 100, 150}) {
    auto loader = Start();
    loader->Open(slow_->File("a.avi"));
    loader->Request(599);
    Pause(ms);
    const QElapsedTimer timer = Started();
    loader.reset();
    EXPECT_LT(timer.elapsed(), 200) << ms;
  }
}

TEST_F(FrameLoaderTest, FaultsAreToldInWords) {
  Ffmpeg(folder_, "-f lavfi -i testsrc2=size=64x48 -c:v mpeg4 -frames:v 5 b.avi");
  std::string bytes = folder_.Get("b.avi");
  for (auto at = bytes.find("FMP4"); at != bytes.npos; at = bytes.find("FMP4")) bytes.replace(at, 4, "QZ9?");
  folder_.Put("undecodable.avi", bytes);
  MakeReddening(folder_, "whole.avi");
  struct Fault {
    const char* film;
    qint64 frame;
    std::size_t answers;
    std::string expected;
  };
  for (const auto& [film, frame, count, expected] :
       {Fault{"none.avi", 0, 1, "There was an error working with the file:\r\n" + folder_.File("none.avi")},
        {"undecodable.avi", 0, 1, "No suitable decompressor found for this video stream!"},
        {"whole.avi", 31, 2, "Frame not found"},
        {"whole.avi", 30, 2, "Can not get frame of file '" + folder_.File("whole.avi") + "'"}}) {
    SCOPED_TRACE(testing::Message() << film << ", frame " << frame);
    const auto loader = Start();
    loader->Open(folder_.File(film));
    loader->Request(frame);
    const auto answers = Answers(count);
    ASSERT_EQ(answers.size(), count);
    EXPECT_EQ(answers.back(), expected);
  }
}

}  // namespace
}  // namespace captoria
