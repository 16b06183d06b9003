#pragma once

// One of the parts of a long run, each calculated on its own. Members are dealt out in turn, by
// their number in the input: who gets which does not depend on how fast anybody is, and heavy
// members that stand together do not fall to one.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

struct Shard {
    std::size_t index = 0, count = 1;  // index from 0

    bool Has(std::size_t member) const { return member % count == index; }
    // How many members of all precede the one behind so many of the shard.
    std::size_t Behind(std::size_t members) const
    {
        return members == 0 ? 0 : index + (members - 1) * count + 1;
    }
};

// "2/8": the second of eight. False for what is no shard.
bool ReadShard(std::string_view text, Shard& shard);

// At which places of the answers of the whole run the answers of a shard stand: each member has a
// place and a number of lines. Runs of equal steps take no more than one member.
class ShardOrder {
public:
    // One more line at this place; places rise.
    void Add(std::size_t place);

    // "PLACE STEP MEMBERS LINES" on a line each.
    std::string Text() const;
    // False for what is no such text.
    bool Read(std::string_view text);

    struct Member {
        std::size_t place, lines;
    };
    // The members in their order, the first to the last, then false.
    bool Next(Member& member);

private:
    struct Run {
        std::size_t place, step, members, lines;
    };
    void Close();

    std::vector<Run> runs_;
    Member open_{0, 0};  // lines are being added
    std::size_t run_ = 0, taken_ = 0;
};

}  // namespace kestrum
