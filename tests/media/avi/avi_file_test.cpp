// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// AVI files with every oddity that is met with, each made by hand.
#include "media/avi/avi_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>

#include "media/avi/avi_info.h"
#include "tests/support/avi_maker.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using namespace avi_maker;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;

// Each chunk as stream, type, size and whether it is a key frame: "0dc9K".
std::string ChunksOf(const AviFile& file) {
  std::string text;
  const auto walk = file.Chunks();
  while (true) {
    const auto chunk = walk->Next();
    if (!chunk) return text + " error: " + chunk.error().message;
    if (!*chunk) return text;
    const AviChunk& it = **chunk;
    if (!text.empty()) text += ' ';
    text += std::to_string(it.stream) + it.type + std::to_string(it.size) + (it.key ? "K" : "");
    std::array<std::uint8_t, 2> number{};
    EXPECT_TRUE(file.File().ReadExactly(it.position, number));
    EXPECT_EQ((number[0] - '0') * 10 + number[1] - '0', it.stream) << "not the place of a chunk";
  }
}

constexpr const char* kByIndex = "0dc9K 1wb3K 0dc7 0dc6K";
constexpr const char* kByLook = "0dc9K 1wb3K 0dc7 0dc6";

struct Oddity {
  const char* name;
  std::string file;
  std::string chunks;
  std::string damage = {};  // a part of its message; empty if nothing is reported
};

std::string IndexFrom(std::uint32_t first) { return OldIndex(Content(), first, {0, 1, 3}); }

std::string Film2(std::string_view between) {  // the content with something between its second and third chunk
  return Film(Piece("00dc", KeyPicture(9)) + Piece("01wb", "abc") + std::string(between) +
                  Piece("00dc", DeltaPicture(7)) + Piece("00dc", DeltaPicture(6)),
              Headers(), "");
}

std::string Cut(const std::string& text, std::size_t from_end) { return text.substr(0, text.size() - from_end); }

std::string Replaced(std::string text, std::string_view before, std::string_view number) {
  return text.replace(text.find(before) + before.size(), number.size(), number);
}

// OpenDML: a stream's list of indices, and an index. `chunks`: offset from the base, size with the bit that says no.
std::string SuperIndex(std::string_view id, const std::vector<std::uint64_t>& positions) {
  std::string data = Number(4, 2) + Number(0, 2) + Number(positions.size()) + std::string(id) + Numbers({0, 0, 0});
  for (const std::uint64_t position : positions) data += Number(position, 8) + Numbers({48, 2});
  return Piece("indx", data);
}
std::string ChunkIndex(std::string_view name, std::string_view id, std::uint64_t base,
                       const std::vector<std::uint32_t>& chunks) {
  return Piece(name, Number(2, 2) + Number(0x0100, 2) + Number(chunks.size() / 2) + std::string(id) + Number(base, 8) +
                         Number(0) + Numbers(chunks));
}

// Two RIFFs; only the indices in them say that each one's second picture is a key frame.
std::string OpenDmlFilm() {
  const std::string pictures = Piece("00dc", KeyPicture(10)) + Piece("00dc", DeltaPicture(8));
  const auto headers = [](std::uint64_t first, std::uint64_t second) {
    return List("hdrl", MainHeader() + VideoStream(SuperIndex("00dc", {first, second})) +
                            List("odml", Piece("dmlh", Numbers({4}))));
  };
  const std::uint64_t movi = MoviPosition(headers(0, 0));
  const auto index = [](std::uint64_t base) { return ChunkIndex("ix00", "00dc", base, {12, 10, 30, 8}); };
  const std::uint64_t index_at = movi + 4 + pictures.size();
  const std::uint64_t next = index_at + index(0).size() + 24;
  return Riff(headers(index_at, next + pictures.size()) + List("movi", pictures + index(movi))) +
         Riff(List("movi", pictures + index(next - 4)), "AVIX");
}

// The stream's list is itself the index.
std::string FilmWithOneIndex() {
  const auto headers = [](std::uint64_t base) {
    return Headers(VideoStream(ChunkIndex("indx", "00dc", base, {8, 9, 38, 0x80000007, 54, 6})) + AudioStream());
  };
  return Film(Content(), headers(MoviPosition(headers(0)) + 4), "");
}

std::vector<Oddity> Oddities() {
  const std::string absurd = Number(0xFFFFFFF0);
  const std::string junk = Piece("JUNK", "0123456");
  const std::string garbage = std::string(3001, '\x01');
  return {
      {"OffsetsFromMovi", Film(), kByIndex},
      {"OffsetsFromTheBeginning", Film(Content(), Headers(), IndexFrom(MoviPosition(Headers()) + 4)), kByIndex},
      {"OffsetsFromTheFirstChunk", Film(Content(), Headers(), IndexFrom(0)), kByIndex},
      {"OffsetsFromSomewhere", Film(Content(), Headers(), IndexFrom(1000)), kByIndex},
      {"NoIndex", Film(Content(), Headers(), ""), kByLook},
      {"IndexOfAbsurdSize", Replaced(Film(), "idx1", absurd), kByIndex},
      {"IndexOfOtherFile", Film(Content(), Headers(), OldIndex(Piece("00dc", "x") + Content(), 4, {0})), kByLook,
       "index does not fit"},
      {"IndexWithoutAnyKeyFrame", Film(Content(), Headers(), OldIndex(Content(), 4, {})), kByLook},
      {"IndexOfHalfTheFile", Film(Content(), Headers(), OldIndex(Cut(Content(), 30), 4, {0, 1})), kByLook},
      {"OpenDml", OpenDmlFilm(), "0dc10K 0dc8K 0dc10K 0dc8K"},
      {"OpenDmlBreaksOffInTheSecondRiff", Cut(OpenDmlFilm(), 60), "0dc10K 0dc8K 0dc10K", "60 bytes are missing"},
      {"IndexInTheStreamItself", FilmWithOneIndex(), kByIndex},
      {"ListsOfChunks",
       Film(List("rec ", Piece("00dc", KeyPicture(9)) + List("rec ", Piece("01wb", "abc"))) +
                List("rec ", Piece("00dc", DeltaPicture(7))),
            Headers(), ""),
       "0dc9K 1wb3K 0dc7"},
      {"JunkAnywhere",
       Riff(junk + List("hdrl", junk + MainHeader() + VideoStream(junk) + junk + AudioStream(junk)) + junk +
            List("movi", junk + Content() + junk) + junk + OldIndex(junk + Content(), 4, {1, 2, 4})),
       kByIndex},
      {"NoPadBytes",
       Film(WithoutPad("00dc", KeyPicture(9)) + WithoutPad("01wb", "abc") + WithoutPad("00dc", DeltaPicture(7)) +
                Piece("00dc", DeltaPicture(6)),
            Headers(VideoStream(WithoutPad("strn", "12") + WithoutPad("strn", "abc")) + AudioStream()), ""),
       kByLook},
      {"SizesNeverFilledIn", Riff(Headers() + List("movi", Content(), 0), "AVI ", 0), kByLook, "was never finished"},
      {"SizesLargerThanTheFile", Riff(Headers() + List("movi", Content(), 100000), "AVI ", 200000), kByLook,
       "bytes are missing"},
      {"SizesTooSmall", Riff(Headers() + List("movi", Content(), 40) + IndexFrom(4), "AVI ", 360), kByLook},
      {"RiffWithItsOwnHeaderCounted",
       Riff(Headers() + List("movi", Content()), "AVI ",
            static_cast<std::int64_t>(12 + Headers().size() + 12 + Content().size())),
       kByLook},
      {"BreaksOffInAChunk", Cut(Film(Content(), Headers(), ""), 3), "0dc9K 1wb3K 0dc7", "within its last chunk"},
      {"BreaksOffInAHeader", Cut(Film(Content(), Headers(), ""), 10), "0dc9K 1wb3K 0dc7", "10 bytes are missing"},
      {"EmptyChunks", Film2(Piece("00dc", "") + Piece("01wb", "")), "0dc9K 1wb3K 0dc0 1wb0K 0dc7 0dc6"},
      {"PaletteChange", Film2(Piece("00pc", "pal!")), "0dc9K 1wb3K 0pc4 0dc7 0dc6"},
      {"OtherLettersForTheType", Riff(Headers() + List("movi", Content()), "AVI\x19"), kByLook},
      {"PaddingThatLooksLikeAStream",
       Film(Content(),
            Headers(VideoStream() + List("strl", Piece("strh", StreamHeader("pads", 1, 1, 0))) + AudioStream())),
       kByIndex},
      {"ShortStreamHeader",
       Film(Content(), Headers(List("strl", Piece("strh", Cut(StreamHeader("vids", 1, 25, 3), 8)) +
                                                Piece("strf", VideoFormat("XVID"))) +
                               AudioStream())),
       kByIndex},
      {"GarbageBehind", Film() + garbage + Content(), kByIndex},
      {"AnotherFilmBehind", Film() + Film(), kByIndex},
      {"GarbageBetween", Film2(garbage), kByLook, "is damaged from byte"},
      {"ZerosThatFillABlock", Film2(std::string(2048, '\0')), kByLook, "is damaged from byte"},
      {"ChunkOfImpossibleSize", Film2(Piece("01wb", "lost", 0xFFFFFF00)), kByLook, "is damaged from byte"},
      {"MuchGarbageEndsIt", Film2(std::string(2 << 20, '\1')), "0dc9K 1wb3K", "is damaged from byte"},
      {"ChunksOfNoStream", Film2(Piece("07wb", "abc") + Piece("ix01", "abcd") + Piece("01ix", "abcd")), kByLook},
      {"PieceOfUnknownLetters", Film2(Piece("Cust", "whatever") + List("INFO", Piece("ISFT", "x"))), kByLook},
      {"IndexInsideMovi", Film2(IndexFrom(4)), kByLook},
      {"FormatOfImpossibleSize", Replaced(Film(), "strf", absurd), kByIndex, "\"strf\" has an impossible size"},
      {"HeaderListOfImpossibleSize", Replaced(Film(), "AVI LIST", absurd), kByIndex},
      {"HeaderListOfNoSize", Replaced(Film(), "AVI LIST", Number(0)), kByIndex},
      {"PieceOfImpossibleSizeInTheHeaders",
       Film(Content(), Headers(VideoStream(Piece("strd", "abcd", 0xFFFFFFF0)) + AudioStream())), kByIndex,
       "\"strd\" has an impossible size"},
      {"MoreListsThanAMebibyte",
       Riff(Headers() + List("INFO", std::string(600'000, 'a')) + List("DXDT", std::string(600'000, 'b')) +
            List("movi", Content()) + IndexFrom(4)),
       kByIndex, "\"LIST\" is too large"},
      {"MoreOfStreamsThanFourMebibytes",
       Film(Content(), Headers(VideoStream([] {
                                 std::string pieces;
                                 for (int i = 0; i < 5; ++i) pieces += Piece("strd", std::string(900'000, 'd'));
                                 return pieces;
                               }()) +
                               AudioStream())),
       kByIndex, "\"strd\" is too large"},
      {"HeadersWithGarbage", Film(Content(), Headers(VideoStream() + std::string(30, '\1') + AudioStream())), kByIndex,
       "headers are damaged"},
  };
}

auto DamageOf(const std::string& path, const std::string& message) {
  return AllOf(Field(&Finding::kind, FindingKind::DamagedVideo), Field(&Finding::file, path),
               Field(&Finding::message, HasSubstr(message)));
}

TEST(AviFile, GivesItsChunksWhateverItsOddities) {
  const TestFolder folder;
  for (const Oddity& row : Oddities()) {
    SCOPED_TRACE(row.name);
    const std::string path = folder.Put("film.avi", row.file);
    const auto file = AviFile::Open(path);
    ASSERT_TRUE(file) << file.error().message;
    EXPECT_EQ(ChunksOf(*file), row.chunks);
    EXPECT_EQ(ChunksOf(*file), row.chunks) << "the second time";
    if (row.damage.empty()) {
      EXPECT_THAT(file->Damage(), IsEmpty());
    } else {
      EXPECT_THAT(file->Damage(), Contains(DamageOf(path, row.damage)));
    }
  }
}

TEST(AviFile, KeepsWhatTheHeadersSay) {
  const TestFolder folder;
  const std::string name("Subtitle - English\0left over", 28);
  const std::string info = List("INFO", Piece("ISFT", "maker"));
  const std::string film = Riff(
      Headers(VideoStream(Piece("strd", "private") + Piece("strn", name) + Piece("vprp", "shape")) + AudioStream()) +
      info + Piece("IDIT", "1999") + List("movi", Content()) + IndexFrom(4) + List("DXDT", "meta"));
  const auto file = AviFile::Open(folder.Put("film.avi", film));
  ASSERT_TRUE(file) << file.error().message;
  EXPECT_EQ(file->Main().micro_seconds_per_frame, 40000u);
  ASSERT_EQ(file->Streams().size(), 2u);
  const AviStream& video = file->Streams()[0];
  EXPECT_EQ(video.header.rate, 25u);
  EXPECT_EQ(video.header.length, 3u);
  EXPECT_EQ(video.header_bytes.size(), 56u);
  EXPECT_EQ(video.format.size(), 40u);
  EXPECT_EQ(video.name, "Subtitle - English");
  ASSERT_EQ(video.others.size(), 2u);
  EXPECT_EQ(video.others[0].id, "strd");
  EXPECT_EQ(video.others[1].id, "vprp");
  EXPECT_FALSE(video.IsXsub());
  std::vector<std::string> extras;
  for (const RiffPiece& piece : file->Extras()) extras.emplace_back(piece.data.begin(), piece.data.end());
  EXPECT_THAT(extras, ElementsAre(info.substr(8), "1999", "DXDTmeta"));
}

TEST(AviFile, TakesAHundredStreamsAndNoMore) {
  const TestFolder folder;
  std::string streams;
  for (int i = 0; i < 101; ++i) streams += AudioStream();
  const auto file =
      AviFile::Open(folder.Put("film.avi", Film(Piece("99wb", "last") + Piece("00wb", "one"), Headers(streams), "")));
  ASSERT_TRUE(file) << file.error().message;
  EXPECT_EQ(file->Streams().size(), 100u);
  EXPECT_EQ(ChunksOf(*file), "99wb4K 0wb3K");
  EXPECT_THAT(file->Damage(), ElementsAre(DamageOf(folder.File("film.avi"), "more than 100 streams")));
}

TEST(AviFile, RefusesWhatIsNoFilm) {
  const TestFolder folder;
  const std::vector<std::pair<const char*, std::string>> rows{
      {"is not an AVI file", ""},
      {"is not an AVI file", "RIFF"},
      {"is not an AVI file", Riff("fmt ", "WAVE")},
      {"is not an AVI file", std::string(5000, '\0')},
      {"contains no stream", Riff("")},
      {"contains no stream", Riff(List("movi", Content()))},
      {"contains no stream", Riff(Headers(""))},
  };
  for (const auto& [reason, content] : rows) {
    const auto file = AviFile::Open(folder.Put("film.avi", content));
    ASSERT_FALSE(file) << content;
    EXPECT_EQ(file.error().kind, ErrorKind::Damaged);
    EXPECT_THAT(file.error().message, HasSubstr(reason));
  }
}

TEST(AviFile, EndsSoonInAGigabyteOfZeros) {
  const TestFolder folder;
  const std::string path = folder.File("film.avi");
  for (const auto& content :
       {Film(Content(), Headers(), ""), Riff(Headers() + List("movi", Content(), 0), "AVI ", 0)}) {
    folder.Put("film.avi", content);
    ASSERT_EQ(truncate(path.c_str(), 1 << 30), 0);
    const auto begun = std::chrono::steady_clock::now();
    const auto file = AviFile::Open(path);
    ASSERT_TRUE(file);
    EXPECT_EQ(ChunksOf(*file), kByLook);
    EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(2));
  }
}

}  // namespace
}  // namespace captoria
