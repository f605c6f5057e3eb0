#pragma once

#include "profiles/profile_reader.h"

#include <functional>

class ProfileStore;

/// Replays a profile as the user's clicks and entries, one after the other. Owns no widget and
/// knows no instrument: the panels' slots react as they do to the user.
class ProfileReplay
{
public:
    /// Waits milliseconds while events go on; false when the program is being ended.
    using Pause = std::function<bool(int)>;

    ProfileReplay(const ProfileStore& store, Pause pause);

    /// False when it has been stopped before its end, or something was left out. Not to be called
    /// while another one runs. Without waiting it is over at once.
    bool run(const std::vector<ProfileEntry>& entries, bool isWaiting);
    /// Ends the replay after the click or entry that is under way.
    void stop() { m_isStopped = true; }
    /// The entry that is under way is not taken.
    void leaveOut() { m_isComplete = false; }
    bool isRunning() const { return m_isRunning; }

private:
    void replay(const ProfileEntry& entry, bool isWaiting);
    void setVariable(const ProfileEntry& entry) const;
    void setButton(const ProfileEntry& entry, bool isWaiting);
    void setField(const ProfileEntry& entry) const;
    void setBox(const ProfileEntry& entry) const;

    const ProfileStore& m_store;
    Pause m_pause;
    bool m_isRunning = false;
    bool m_isStopped = false;
    bool m_isComplete = true;
};
