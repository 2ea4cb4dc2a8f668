#include "data/operation/VrexOperationListenerManager.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/operation/VrexOperation.h"
#include "data/operation/VrexOperationListener.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Operation = std::shared_ptr<VrexOperation>;

Operation makeOperation() { return std::make_shared<VrexOperation>(VrexOperationType{1}, nullptr); }

/// Writes its name into a list, then does what it is told.
class NamedListener : public VrexOperationListener {
public:
    NamedListener(std::string name, std::vector<std::string>& calls,
                  std::function<void(const Operation&)> action)
        : m_name(std::move(name)), m_calls(calls), m_action(std::move(action)) {}
    void onOperation(const Operation& operation) override {
        m_calls.push_back(m_name);
        if (m_action) {
            m_action(operation);
        }
    }

private:
    std::string m_name;
    std::vector<std::string>& m_calls;
    std::function<void(const Operation&)> m_action;
};

class VrexOperationListenerManagerTest : public testing::Test {
protected:
    std::vector<std::string> m_calls;
    VrexOperationListenerManager m_manager;

    std::shared_ptr<VrexOperationListener> make(std::string name,
                                                std::function<void(const Operation&)> action = {}) {
        return std::make_shared<NamedListener>(std::move(name), m_calls, std::move(action));
    }
    std::shared_ptr<VrexOperationListener> add(std::string name,
                                               std::function<void(const Operation&)> action = {}) {
        auto listener = make(std::move(name), std::move(action));
        m_manager.addListener(listener);
        return listener;
    }
};

TEST_F(VrexOperationListenerManagerTest, WithoutListenersNothingHappens) {
    const Operation operation = makeOperation();
    EXPECT_NO_THROW(m_manager.onOperation(operation));
    EXPECT_NO_THROW(m_manager.onOperation(nullptr));
    EXPECT_EQ(operation.use_count(), 1);
}

TEST_F(VrexOperationListenerManagerTest, CallsInTheOrderOfRegistrationWithTheRecord) {
    const Operation operation = makeOperation();
    Operation heard;
    add("c");
    add("a", [&heard](const Operation& record) { heard = record; });
    add("b");
    m_manager.onOperation(operation);
    EXPECT_THAT(m_calls, ElementsAre("c", "a", "b"));
    EXPECT_EQ(heard, operation);
}

TEST_F(VrexOperationListenerManagerTest, AddedTwiceIsCalledTwiceAndRemovedOnceIsCalledOnce) {
    const auto twice = add("twice");
    add("other");
    m_manager.addListener(twice);
    m_manager.onOperation(makeOperation());
    EXPECT_THAT(m_calls, ElementsAre("twice", "other", "twice"));

    m_calls.clear();
    m_manager.removeListener(twice);
    m_manager.onOperation(makeOperation());
    EXPECT_THAT(m_calls, ElementsAre("other", "twice")); // the first registration went
}

TEST_F(VrexOperationListenerManagerTest, RemovingOneThatWasNeverAddedChangesNothing) {
    add("a");
    m_manager.removeListener(make("stranger"));
    m_manager.removeListener(nullptr);
    m_manager.onOperation(makeOperation());
    EXPECT_THAT(m_calls, ElementsAre("a"));
}

TEST_F(VrexOperationListenerManagerTest, NullListenerIsNeverCalled) {
    m_manager.addListener(nullptr);
    add("a");
    EXPECT_NO_THROW(m_manager.onOperation(makeOperation()));
    EXPECT_THAT(m_calls, ElementsAre("a"));
}

TEST_F(VrexOperationListenerManagerTest, CopyHasAListOfItsOwnWithTheSameListeners) {
    const auto a = add("a");
    VrexOperationListenerManager copy = m_manager;
    m_manager.removeListener(a);
    m_manager.onOperation(makeOperation());
    EXPECT_THAT(m_calls, IsEmpty());
    copy.onOperation(makeOperation());
    EXPECT_THAT(m_calls, ElementsAre("a"));
}

TEST_F(VrexOperationListenerManagerTest, ListenerThatThrowsEndsTheRoundAndTheNextRoundIsWhole) {
    bool fails = true;
    add("a");
    add("b", [&fails](const Operation&) {
        if (fails) {
            throw std::runtime_error("b");
        }
    });
    add("c");
    EXPECT_THROW(m_manager.onOperation(makeOperation()), std::runtime_error);
    EXPECT_THAT(m_calls, ElementsAre("a", "b"));
    fails = false;
    m_calls.clear();
    m_manager.onOperation(makeOperation());
    EXPECT_THAT(m_calls, ElementsAre("a", "b", "c"));
}

TEST_F(VrexOperationListenerManagerTest, ListenersMayChangeTheListForTheNextRound) {
    std::shared_ptr<VrexOperationListener> self;
    std::shared_ptr<VrexOperationListener> next;
    self = add("self", [&](const Operation&) {
        m_manager.removeListener(self);
        m_manager.removeListener(next);
        add("new");
        self.reset(); // the manager's share of this round is the last
        next.reset();
    });
    next = add("next");
    m_manager.onOperation(makeOperation());
    EXPECT_THAT(m_calls, ElementsAre("self", "next"));
    m_calls.clear();
    m_manager.onOperation(makeOperation());
    EXPECT_THAT(m_calls, ElementsAre("new"));
}

TEST_F(VrexOperationListenerManagerTest, RecordAndManagerMayGoDuringTheRound) {
    Operation operation = makeOperation();
    std::optional<VrexOperationListenerManager> manager(std::in_place);
    VrexOperationType heard{};
    manager->addListener(make("drops", [&](const Operation&) {
        operation.reset();
        manager.reset();
    }));
    manager->addListener(
        make("reads", [&heard](const Operation& record) { heard = record->operatoinType(); }));
    manager->onOperation(operation);
    EXPECT_THAT(m_calls, ElementsAre("drops", "reads"));
    EXPECT_EQ(heard, VrexOperationType{1});
}

TEST_F(VrexOperationListenerManagerTest, CallsAreTheRegistrationsInOrderWhateverWasAddedAndRemoved) {
    const std::vector<std::string> names{"a", "b", "c", "d"};
    std::vector<std::shared_ptr<VrexOperationListener>> listeners;
    for (const std::string& name : names) {
        listeners.push_back(make(name));
    }
    std::mt19937 engine{20'261};
    std::vector<std::string> registrations;
    for (int step = 0; step < 5'000; ++step) {
        const std::size_t i = engine() % names.size();
        if (engine() % 2 == 0) {
            m_manager.addListener(listeners[i]);
            registrations.push_back(names[i]);
        } else {
            m_manager.removeListener(listeners[i]);
            const auto first = std::ranges::find(registrations, names[i]);
            registrations.erase(first, first + (first == registrations.end() ? 0 : 1));
        }
        m_calls.clear();
        m_manager.onOperation(makeOperation());
        ASSERT_EQ(m_calls, registrations);
    }
}

} // namespace
