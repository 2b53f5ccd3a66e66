#pragma once

#include <QtGlobal>

#include <random>
#include <vector>

namespace tessary {

/// Every choice of a run: the same seed makes the same ones. How threads and phones keep step is
/// not in it.
class Dice {
public:
    explicit Dice(quint64 seed) : engine_(seed) {}

    [[nodiscard]] quint64 number() {
        return engine_();
    }
    /// Both ends included.
    [[nodiscard]] int between(int least, int most) {
        return least + static_cast<int>(engine_() % static_cast<quint64>(most - least + 1));
    }
    [[nodiscard]] bool happens(int percent) {
        return between(1, 100) <= percent;
    }
    /// Not of an empty list.
    template <typename List>
    [[nodiscard]] const auto& oneOf(const List& list) {
        return list[static_cast<typename List::size_type>(engine_() %
                                                          static_cast<quint64>(list.size()))];
    }

private:
    std::mt19937_64 engine_;
};

} // namespace tessary
