#include "table/sound_player.h"

#include <QEventLoop>
#include <QMediaDevices>
#include <QTimer>
#include <QUrl>

#include "config/sound.h"

namespace {

// The longest a roll waits for one sound; a stick call lasts about a second.
constexpr int kLongestWaitMs = 8000;
// Flag bits of Platform::PlaySound.
constexpr int kFlagAsync = 1;
constexpr int kFlagLoop = 8;

}  // namespace

SoundPlayer::SoundPlayer(QObject* parent) : QObject(parent) {
  available_ = !QMediaDevices::audioOutputs().isEmpty();
}

void SoundPlayer::SetVolume(double volume) {
  main_.setVolume(static_cast<float>(volume));
  overlay_.setVolume(static_cast<float>(volume));
}

void SoundPlayer::Play(std::string_view path, int flags) {
  if (path.empty()) {
    main_.stop();
    overlay_.stop();
    return;
  }
  if (!available_) return;
  QSoundEffect& channel = flags == kSoundOverlay ? overlay_ : main_;
  channel.stop();
  channel.setSource(QUrl::fromLocalFile(QString::fromUtf8(path.data(), static_cast<qsizetype>(path.size()))));
  channel.setLoopCount((flags & kFlagLoop) != 0 ? QSoundEffect::Infinite : 1);
  channel.play();
  if ((flags & kFlagAsync) == 0) WaitForEnd();
}

void SoundPlayer::WaitForEnd() {
  QEventLoop loop;
  QTimer bound;
  bound.setSingleShot(true);
  connect(&bound, &QTimer::timeout, &loop, &QEventLoop::quit);
  // A sound still loading is not yet playing: the loop ends when it has
  // played and stopped, or when it fails to load.
  bool started = main_.isPlaying();
  connect(&main_, &QSoundEffect::playingChanged, &loop, [&] {
    if (main_.isPlaying()) started = true;
    else if (started) loop.quit();
  });
  connect(&main_, &QSoundEffect::statusChanged, &loop, [&] {
    if (main_.status() == QSoundEffect::Error) loop.quit();
  });
  if (main_.status() == QSoundEffect::Error) return;
  bound.start(kLongestWaitMs);
  loop.exec(QEventLoop::ExcludeUserInputEvents);
  if (bound.isActive()) bound.stop();
  else main_.stop();
}
