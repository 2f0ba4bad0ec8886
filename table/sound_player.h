// SoundPlayer: the desktop's wave output behind Platform::PlaySound. Two
// channels: the main one for stick calls, dice and wins (a new sound cuts the
// old), and one for the checks, which play over whatever else sounds. A sound
// the game waits for runs a local event loop (user input held back) until it
// ends, fails, or a bound of time passes, so a missing device or a broken
// file never stalls a roll.
// What must stay true:
// - Without an audio device nothing plays and nothing waits.
#pragma once

#include <QObject>
#include <QAudioDevice>
#include <QSoundEffect>
#include <string_view>

class SoundPlayer : public QObject {
  Q_OBJECT
 public:
  explicit SoundPlayer(QObject* parent = nullptr);

  // Plays `path` with the flags of Platform::PlaySound; an empty path cuts
  // every sound.
  void Play(std::string_view path, int flags);
  // Whether an audio output exists to play on.
  bool Available() const { return available_; }
  // The output volume, 0 (silent) to 1 (full), both channels alike.
  double Volume() const { return main_.volume(); }
  void SetVolume(double volume);

 private:
  // Waits for the main channel to finish, within kLongestWaitMs.
  void WaitForEnd();

  QSoundEffect main_;
  QSoundEffect overlay_;
  bool available_ = false;
};
