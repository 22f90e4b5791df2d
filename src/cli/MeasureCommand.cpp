// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/MeasureCommand.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <exception>
#include <span>
#include <thread>

#include "analysis/WaveformTruth.h"
#include "base/ErrorReason.h"
#include "cli/AngleList.h"
#include "cli/FileDescription.h"
#include "cli/Helpers.h"
#include "cli/Interrupt.h"
#include "cli/MeasurePlot.h"
#include "cli/MeasureReport.h"
#include "cli/NotEmpty.h"
#include "cli/NumberCheck.h"
#include "cli/PngPicture.h"
#include "cli/Printable.h"
#include "cli/Problem.h"
#include "cli/Streams.h"
#include "cli/WidthOption.h"
#include "export/AtomicFile.h"

namespace {

bool isPng(const std::filesystem::path& path) {
  return path.extension() == ".png";
}

unsigned processors() {
  return std::max(1U, std::thread::hardware_concurrency());
}

}  // namespace

CLI::App* MeasureCommand::declare(CLI::App& program) {
  CLI::App* command = program.add_subcommand(
      "measure", "Measure loudness, peaks and stereo width, decoded, at one width or at all");
  auto* angle = WidthOption::add(*command, _angle);
  command->add_option("--angles", _angles, "Several widths: all, or whole degrees and commas")
      ->type_name("LIST")
      ->check(AngleList::check())
      ->excludes(angle);
  command->add_option("--gain", _gain, "Gain in dB; positive is louder")
      ->type_name("DB")
      ->check(realBetween(-kMostGain, kMostGain))
      ->capture_default_str();
  _stretch.add(*command, StretchOption::Needs::Nothing);
  auto* json = command->add_flag("--json", _asJson, "One JSON object a line for each file");
  command->add_flag("--csv", _asCsv, "Comma-separated values, a line a width")->excludes(json);
  auto* plot =
      command
          ->add_option(
              "--plot", _plot,
              "A picture to write, FILE.svg or FILE.png: the waveform, and figures over all widths")
          ->type_name("FILE");
  command->add_flag("--quiet", _isQuiet, "Show no progress");
  _list.add(*command, _files, "Recordings");
  command->callback([this, plot] {
    refuseNothing(plot, _plot);
    _list.complete(_files);
    checkOptions();
  });
  return command;
}

void MeasureCommand::checkOptions() const {
  _stretch.check();
  if (_plot.empty()) return;
  if (_files.size() > 1) throw CLI::ValidationError("--plot", "goes with a single FILE");
  if (_plot.extension() != ".svg" && !isPng(_plot)) {
    throw CLI::ValidationError("--plot", "is neither a FILE.svg nor a FILE.png");
  }
}

std::vector<int> MeasureCommand::angles() const {
  return _angles.empty() ? std::vector{WaveFileReader::wholeAngle(WidthOption::valueOf(_angle))}
                         : AngleList::parse(_angles);
}

// Texts are printed in the order of the command line.
int MeasureCommand::run() {
  const Texts texts = measureAll();
  if (_asCsv) Streams::out(MeasureReport::csvHead());
  for (const auto& text : texts) Streams::out(text.value_or(""));
  const bool isAllDone =
      std::ranges::all_of(texts, [](const auto& text) { return text.has_value(); });
  return isAllDone ? kDone : kFailed;
}

MeasureCommand::Texts MeasureCommand::measureAll() const {
  ProgressLine line(_files.size());
  if (_isQuiet) line.hide();
  Texts texts(_files.size());
  const std::string note = WidthOption::note(_angle);
  if (!note.empty()) line.message(note);
  std::atomic<std::size_t> next{0};
  std::atomic<bool> isCancelled{false};
  Helpers::run(std::min<std::size_t>(processors(), _files.size()), [&] {
    for (std::size_t i = next++; i < _files.size(); i = next++) {
      if (!Interrupt::requested()) texts[i] = guardedMeasure(i, line);
      if (!texts[i] && Interrupt::requested()) isCancelled = true;
    }
  });
  if (isCancelled) line.message(kCancelled);
  return texts;
}

std::optional<std::string> MeasureCommand::guardedMeasure(std::size_t index,
                                                          ProgressLine& line) const {
  try {
    return measure(index, line);
  } catch (const std::exception& error) {  // as where there is no memory left
    line.message(problemLine(_files[index], kFailToOpen, reasonOf(error)));
    return std::nullopt;
  }
}

std::optional<std::string> MeasureCommand::measure(std::size_t index, ProgressLine& line) const {
  const std::filesystem::path& file = _files[index];
  const Export job(file);
  if (!job.IsFileValid()) {
    line.message(sourceProblem(job));
    return std::nullopt;
  }
  const std::string reason = _stretch.whyNot(*job.reader());
  if (!reason.empty()) {
    line.message(problemLine(file, "No such stretch.", reason));
    return std::nullopt;
  }
  const std::string warning = FileDescription::audioAdvice(*job.reader());
  if (!warning.empty()) line.message(problemLine(file, kWarning, warning));
  const std::string width = WidthOption::warning(_angle, *job.reader());
  if (!width.empty()) line.message(problemLine(file, kWarning, width));
  const auto analysis = analyse(job, index, line);
  if (!analysis) return std::nullopt;
  if (!_plot.empty() && !plot(job, *analysis, line)) return std::nullopt;
  return text(file, *analysis);
}

bool MeasureCommand::plot(const Export& job, const TakeAnalysis& analysis,
                          ProgressLine& line) const {
  const int width = angles().front();
  Waveform waveform =
      analysis.waveform(width, _gain, 0, analysis.layout().frames(), MeasurePlot::kColumns);
  WaveformTruth truth(*job.reader(), options(job).firstFrame, width, _gain);
  if (!truth.settle(waveform, &Interrupt::requested())) {
    if (!truth.failure().empty()) {
      line.message(problemLine(job.getFilePath(), kFailToOpen, truth.failure()));
    }
    return false;
  }
  const std::string title = printable(job.getFilePath().filename().native());
  const MeasurePlot picture(title, analysis, waveform, width, _gain);
  const std::string failure = savePlot(picture.svg());
  if (!failure.empty())
    line.message(targetProblem(_plot, failure, "name another place with --plot"));
  return failure.empty();
}

// Empty once it is there, else why not.
std::string MeasureCommand::savePlot(const std::string& svg) const {
  std::span<const std::byte> bytes = std::as_bytes(std::span(svg));
  std::optional<PngPicture> png;
  if (isPng(_plot)) {
    png.emplace(svg);
    if (!png->failure().empty()) return png->failure();
    bytes = png->bytes();
  }
  AtomicFile file(_plot, AtomicFile::Existing::Replace);
  return file.write(bytes) && file.commit() ? "" : file.failure();
}

// A single file is worked on by a worker a processor; several by up to twice as many together, so
// that the last ones leave fewer of the processors idle.
TakeAnalyzer::Options MeasureCommand::options(const Export& job) const {
  TakeAnalyzer::Options options;
  options.firstFrame = _stretch.firstFrame(*job.reader());
  options.endFrame = _stretch.endFrame(*job.reader());
  const auto files = static_cast<unsigned>(std::min<std::size_t>(_files.size(), processors()));
  options.workers = std::clamp(2 * processors() / files, 1U, processors());
  return options;
}

std::shared_ptr<const TakeAnalysis> MeasureCommand::analyse(const Export& job, std::size_t index,
                                                            ProgressLine& line) const {
  TakeAnalyzer analyzer(*job.reader(), options(job));
  const std::string name = printable(_files[index].filename().native());
  auto analysis =
      analyzer.wait(&Interrupt::requested(), [&](double done) { line.update(index, name, done); });
  if (!analysis && !analyzer.failure().empty()) {
    line.message(problemLine(_files[index], kFailToOpen, analyzer.failure()));
  }
  return analysis;
}

std::string MeasureCommand::text(const std::filesystem::path& file,
                                 const TakeAnalysis& analysis) const {
  const MeasureReport report(file, analysis, angles(), _gain);
  // A name that is not UTF-8 is shown with replacement characters.
  constexpr auto kReplace = nlohmann::ordered_json::error_handler_t::replace;
  if (_asJson) return report.json().dump(-1, ' ', false, kReplace) + "\n";
  return _asCsv ? report.csv() : report.table();
}
