#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <utility>

template <class Signature> class Seam;

/// A function of the program that another may stand in for, as where the machine's clock or a dialogue would
/// be in the way: the program calls the seam, and what is called is the seam's own function or the
/// replacement that was made last and still lives. May be called and replaced from any thread; a call that
/// has begun ends with the function that it began with.
template <class Result, class... Arguments> class Seam<Result(Arguments...)> {
  public:
    using Function = std::function<Result(Arguments...)>;

    explicit Seam(Function own)
        : mOwn(std::make_shared<const Function>(std::move(own)))
        , mCurrent(mOwn) {}

    Result operator()(Arguments... arguments) const {
        return (*Current())(std::forward<Arguments>(arguments)...);
    }

    /// The function stands in for as long as this lives; what stood before comes back. Replacements of one
    /// seam end in the reverse order of their beginning.
    class [[nodiscard]] Replacement {
      public:
        Replacement(Seam& seam, Function function)
            : mSeam(seam)
            , mBefore(seam.Exchange(std::make_shared<const Function>(std::move(function)))) {}
        ~Replacement() { mSeam.Exchange(std::move(mBefore)); }
        Replacement(const Replacement&) = delete;
        Replacement& operator=(const Replacement&) = delete;

      private:
        Seam& mSeam;
        std::shared_ptr<const Function> mBefore;
    };

    Replacement Replace(Function function) { return Replacement(*this, std::move(function)); }
    /// What is called where nothing stands in.
    const Function& Own() const { return *mOwn; }

  private:
    std::shared_ptr<const Function> Current() const {
        const std::lock_guard lock(mMutex);
        return mCurrent;
    }

    std::shared_ptr<const Function> Exchange(std::shared_ptr<const Function> function) {
        const std::lock_guard lock(mMutex);
        return std::exchange(mCurrent, std::move(function));
    }

    const std::shared_ptr<const Function> mOwn;
    mutable std::mutex mMutex;
    std::shared_ptr<const Function> mCurrent;
};
