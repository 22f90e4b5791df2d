// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/TakeAnalyzer.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include "analysis/UnitPass.h"
#include "base/ErrorReason.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kReportEvery = std::chrono::milliseconds(100);
constexpr auto kLate = std::chrono::milliseconds(100);  // that a quick medium may be, all in all
constexpr double kDrawnShare = 0.2;  // of the work, where the waveform comes first

TakeLayout layoutOf(const WaveFileReader& reader, const TakeAnalyzer::Options& options) {
  const std::uint64_t frames = reader.frameCount();
  const std::uint64_t end = std::min(options.endFrame, frames);
  const std::uint64_t count = end - std::min(options.firstFrame, end);
  return {reader.header().SampleRate, count, reader.isBoMSFormat()};
}

std::uint64_t bytesOf(WaveFileReader reader, std::uint64_t frames) {
  return frames * reader.cursor().frameBytes();
}

unsigned workersFor(const TakeLayout& layout, const TakeAnalyzer::Options& options,
                    unsigned wanted) {
  const unsigned processors = std::max(1U, std::thread::hardware_concurrency());
  const unsigned most = wanted > 0 ? wanted : processors;
  const std::uint64_t fit =
      std::max<std::uint64_t>(1, options.workersMemory / UnitPass::memory(layout));
  return static_cast<unsigned>(std::min({std::uint64_t{most}, fit, std::uint64_t{layout.units()}}));
}

/// How quickly the medium has been so far.
class Pace {
 public:
  explicit Pace(double quick) : _quick(quick) {}

  void add(std::uint64_t bytes, Clock::duration took) {
    _bytes += static_cast<double>(bytes);
    _took += took;
  }
  [[nodiscard]] bool isQuick() const {
    const std::chrono::duration<double> late = _took - kLate;
    return late.count() * _quick <= _bytes;
  }

 private:
  double _quick;  ///< bytes a second
  double _bytes = 0;
  Clock::duration _took{};
};

}  // namespace

/// What the workers share: each takes the next unit, works on it alone, and adds what it found.
class TakeAnalyzer::Work {
 public:
  Work(WaveFileReader reader, const TakeLayout& layout, const Options& options)
      : _reader(std::move(reader)),
        _firstFrame(options.firstFrame),
        _keepsBins(options.keepsBins),
        _unitBytes(bytesOf(_reader, layout.framesPerUnit())),
        _pace(options.quickMedium),
        _findings(layout),
        _isTaken(layout.units()) {
    _findings.file = _reader.fileState();
    _findings.firstFrame = _firstFrame;
    const bool isLong = bytesOf(_reader, layout.frames()) >= options.longTake;
    _isDrawing = options.waveformFirst && _keepsBins && isLong;
  }

  [[nodiscard]] bool isDrawing() const { return _isDrawing; }
  /// All of them draw, where the waveform comes first, and so many do the rest.
  void begin(unsigned workers, unsigned lasting, const std::shared_ptr<Work>& self);
  void lookAt(std::uint64_t frame);
  void cancel();
  double progress();
  bool isFinished();
  std::string failure();
  TakeFindings copy();
  std::shared_ptr<const TakeAnalysis> whole();
  void waitForMore();
  void waitForWorkers();

 private:
  void run(unsigned worker);
  std::string measure(unsigned worker);
  bool takeNext(unsigned worker, UnitResult& result);
  bool takeFrom(UnitResult& result);
  void endDrawing();
  void heed(Clock::duration took, UnitResult& result);
  bool readNext(unsigned worker, UnitPass& pass, UnitResult& result);
  void add(UnitResult& result);
  void end(const std::string& failure);

  const WaveFileReader _reader;
  const std::uint64_t _firstFrame;
  const bool _keepsBins;
  const std::uint64_t _unitBytes;
  unsigned _lasting = 0;  ///< workers that go on after the drawing; set before there are any
  std::atomic<bool> _isCancelled{false};
  std::mutex _reading;  ///< held by the worker that reads
  std::mutex _mutex;    ///< guards all that follows
  std::condition_variable _progressed;
  bool _isDrawing = false;  ///< the waveform alone
  Pace _pace;
  TakeFindings _findings;
  std::vector<bool> _isTaken;
  std::size_t _next = 0;
  std::size_t _lookedAt = 0;  ///< the unit that was asked for last
  unsigned _workers = 0;
  std::string _failure;
};

// A worker keeps the work alive by itself, so that nobody ever waits for a hanging medium.
void TakeAnalyzer::Work::begin(unsigned workers, unsigned lasting,
                               const std::shared_ptr<Work>& self) {
  _workers = workers;
  _lasting = lasting;
  for (unsigned i = 0; i < workers; ++i) {
    try {
      std::thread([self, i] { self->run(i); }).detach();
    } catch (const std::exception& error) {
      end(i == 0 ? reasonOf(error) : "");
    }
  }
}

// What the pass holds is let go of before the last one to wait is told.
void TakeAnalyzer::Work::run(unsigned worker) {
  std::string failure;
  try {
    failure = measure(worker);
  } catch (const std::exception& error) {  // as where there is no memory left
    failure = reasonOf(error);
  }
  end(failure);
}

std::string TakeAnalyzer::Work::measure(unsigned worker) {
  UnitPass pass(_reader, _findings.layout, _firstFrame, &_isCancelled);
  UnitResult result;
  while (readNext(worker, pass, result)) {
    result.isWaveformAlone ? pass.runWaveform(result) : pass.run(result);
    add(result);
  }
  return pass.failure();
}

// One after the other: several units at once would share a slow medium, and nothing would be known
// for as long as all of them take.
bool TakeAnalyzer::Work::readNext(unsigned worker, UnitPass& pass, UnitResult& result) {
  const std::lock_guard lock(_reading);
  if (!takeNext(worker, result)) return false;
  const auto begun = Clock::now();
  if (!pass.fill(result.unit)) return false;
  if (result.isWaveformAlone) heed(Clock::now() - begun, result);
  return true;
}

bool TakeAnalyzer::Work::takeNext(unsigned worker, UnitResult& result) {
  const std::lock_guard lock(_mutex);
  if (_isCancelled || !_failure.empty()) return false;
  if (_isDrawing && takeFrom(result)) return true;
  if (_isDrawing) endDrawing();
  return worker < _lasting && takeFrom(result);
}

// What a medium that is slow gives is worth more than a waveform: it is not read twice.
void TakeAnalyzer::Work::heed(Clock::duration took, UnitResult& result) {
  const std::lock_guard lock(_mutex);
  _pace.add(_unitBytes, took);
  if (!_isDrawing || _pace.isQuick()) return;
  endDrawing();
  _isTaken[result.unit] = true;
  result.isWaveformAlone = false;
}

void TakeAnalyzer::Work::endDrawing() {
  _isDrawing = false;
  _isTaken.assign(_isTaken.size(), false);
  _next = _lookedAt;
}

bool TakeAnalyzer::Work::takeFrom(UnitResult& result) {
  const auto from = _isTaken.begin() + static_cast<std::ptrdiff_t>(_next);
  auto found = std::find(from, _isTaken.end(), false);
  if (found == _isTaken.end()) found = std::find(_isTaken.begin(), from, false);
  if (found == _isTaken.end() || *found) return false;
  *found = true;
  result.unit = static_cast<std::size_t>(found - _isTaken.begin());
  result.isWaveformAlone = _isDrawing;
  _next = result.unit;
  result.samplePeaks = _findings.samplePeaks;
  result.truePeaks = _findings.truePeaks;
  return true;
}

void TakeAnalyzer::Work::add(UnitResult& result) {
  if (!_keepsBins) {  // with their room, which "= {}" would keep
    result.found.keys = std::vector<UpperKey::Key>();
    result.found.peakKeys = std::vector<UpperKey::Key>();
  }
  const std::lock_guard lock(_mutex);
  result.isWaveformAlone ? _findings.addWaveform(std::move(result))
                         : _findings.add(std::move(result));
  _progressed.notify_all();
}

void TakeAnalyzer::Work::end(const std::string& failure) {
  const std::lock_guard lock(_mutex);
  if (_failure.empty()) _failure = failure;
  --_workers;
  _progressed.notify_all();
}

void TakeAnalyzer::Work::lookAt(std::uint64_t frame) {
  const std::lock_guard lock(_mutex);
  const std::size_t unit = frame / _findings.layout.framesPerUnit();
  _next = _lookedAt = std::min(unit, _isTaken.size());
}

void TakeAnalyzer::Work::cancel() {
  const std::lock_guard lock(_mutex);
  _isCancelled = true;
  _progressed.notify_all();
}

double TakeAnalyzer::Work::progress() {
  const std::lock_guard lock(_mutex);
  if (_isTaken.empty()) return 1;
  const auto all = static_cast<double>(_isTaken.size());
  const double known = static_cast<double>(_findings.unitsKnown) / all;
  const double drawn = std::max(known, static_cast<double>(_findings.unitsDrawn) / all);
  return known + kDrawnShare * (drawn - known);
}

bool TakeAnalyzer::Work::isFinished() {
  const std::lock_guard lock(_mutex);
  return _workers == 0 || _isCancelled;
}

std::string TakeAnalyzer::Work::failure() {
  const std::lock_guard lock(_mutex);
  return _failure;
}

TakeFindings TakeAnalyzer::Work::copy() {
  const std::lock_guard lock(_mutex);
  return _findings;
}

std::shared_ptr<const TakeAnalysis> TakeAnalyzer::Work::whole() {
  const std::lock_guard lock(_mutex);
  const bool isWhole = _workers == 0 && _findings.unitsKnown == _isTaken.size();
  return isWhole ? std::make_shared<const TakeAnalysis>(_findings) : nullptr;
}

void TakeAnalyzer::Work::waitForMore() {
  std::unique_lock lock(_mutex);
  if (_workers > 0 && !_isCancelled) _progressed.wait_for(lock, kReportEvery);
}

void TakeAnalyzer::Work::waitForWorkers() {
  std::unique_lock lock(_mutex);
  _progressed.wait(lock, [this] { return _workers == 0; });
}

TakeAnalyzer::TakeAnalyzer(const WaveFileReader& reader, const Options& options) {
  const TakeLayout layout = layoutOf(reader, options);
  _work = std::make_shared<Work>(reader, layout, options);
  const unsigned lasting = workersFor(layout, options, options.workers);
  const unsigned drawing = std::max(lasting, workersFor(layout, options, 0));
  _work->begin(_work->isDrawing() ? drawing : lasting, lasting, _work);
}

TakeAnalyzer::~TakeAnalyzer() {
  _work->cancel();
}

void TakeAnalyzer::lookAt(std::uint64_t frame) {
  _work->lookAt(frame);
}

void TakeAnalyzer::cancel() {
  _work->cancel();
}

double TakeAnalyzer::progress() const {
  return _work->progress();
}

bool TakeAnalyzer::isFinished() const {
  return _work->isFinished();
}

std::string TakeAnalyzer::failure() const {
  return _work->failure();
}

std::shared_ptr<const TakeAnalysis> TakeAnalyzer::soFar() const {
  return std::make_shared<const TakeAnalysis>(_work->copy());
}

std::shared_ptr<const TakeAnalysis> TakeAnalyzer::wait(const std::atomic<bool>* cancel,
                                                       const Progress& report) {
  while (!_work->isFinished()) {
    _work->waitForMore();
    if (cancel != nullptr && *cancel) _work->cancel();
    if (report) report(_work->progress());
  }
  if (report) report(_work->progress());  // it may have been done before the wait began
  return _work->whole();
}

void TakeAnalyzer::waitForWorkers() {
  _work->waitForWorkers();
}
