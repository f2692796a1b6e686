#include "controls/MessageQueue.h"
#include "helpers/QtWaiting.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QThread>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace quillmeter {
namespace {

TEST(MessageQueueTest, WhatAnotherThreadPostsRunsHereInOrder) {
  constexpr int kMessages = 1000;
  std::vector<std::string> sent;
  for (int i = 0; i < kMessages; ++i)
    sent.push_back("too long a text to be kept in place " + std::to_string(i));
  MessageQueue queue;
  std::vector<std::string> received;
  bool isAllHere = true;
  std::thread poster([&] {
    for (const std::string& text : sent) {
      queue.post([&, text] {
        isAllHere = isAllHere && QThread::currentThread() == queue.thread();
        received.push_back(text);
      });
    }
  });
  EXPECT_TRUE(testing::waitFor([&] { return received.size() == kMessages; }));
  poster.join();
  EXPECT_TRUE(isAllHere);
  EXPECT_EQ(received, sent);
}

TEST(MessageQueueTest, NothingRunsBeforeTheEventLoopComesAround) {
  MessageQueue queue;
  bool hasRun = false;
  queue.post([&] { hasRun = true; });
  EXPECT_FALSE(hasRun);
  EXPECT_TRUE(testing::waitFor([&] { return hasRun; }));
}

TEST(MessageQueueTest, MessagesOfSeveralThreadsAllArrive) {
  constexpr std::size_t kThreads = 4;
  constexpr std::size_t kMessages = 500;
  MessageQueue queue;
  std::vector<std::size_t> arrivedOfThread(kThreads);
  std::size_t received = 0;
  bool isInOrder = true;
  std::vector<std::thread> posters;
  for (std::size_t thread = 0; thread < kThreads; ++thread) {
    posters.emplace_back([&, thread] {
      for (std::size_t i = 0; i < kMessages; ++i) {
        queue.post([&, thread, i] {
          isInOrder = isInOrder && arrivedOfThread[thread] == i;
          ++arrivedOfThread[thread];
          ++received;
        });
      }
    });
  }
  EXPECT_TRUE(testing::waitFor([&] { return received == kThreads * kMessages; }));
  for (std::thread& poster : posters)
    poster.join();
  EXPECT_TRUE(isInOrder);
}

TEST(MessageQueueTest, WaitingMessagesAreDroppedWithTheQueue) {
  bool hasRun = false;
  const auto held = std::make_shared<int>(1);
  {
    MessageQueue queue;
    queue.post([&hasRun, held] { hasRun = true; });
    EXPECT_EQ(held.use_count(), 2);
  }
  EXPECT_EQ(held.use_count(), 1);
  QCoreApplication::processEvents();
  EXPECT_FALSE(hasRun);
}

TEST(MessageQueueTest, AMessageMayDestroyTheQueue) {
  auto queue = std::make_unique<MessageQueue>();
  bool hasSecondRun = false;
  queue->post([&queue] { queue.reset(); });
  queue->post([&hasSecondRun] { hasSecondRun = true; });
  EXPECT_TRUE(testing::waitFor([&] { return !queue; }));
  QCoreApplication::processEvents();
  EXPECT_FALSE(hasSecondRun);
}

TEST(MessageQueueTest, AMessageThatWaitsInALoopOfItsOwnLetsTheNextOnesRun) {
  MessageQueue queue;
  std::vector<int> order;
  queue.post([&] {
    order.push_back(1);
    EXPECT_TRUE(testing::waitFor([&] { return order.size() == 2; }));
    order.push_back(3);
  });
  queue.post([&order] { order.push_back(2); });
  EXPECT_TRUE(testing::waitFor([&] { return order.size() == 3; }));
  EXPECT_EQ(order, (std::vector<int>{1, 2, 3}));
}

}  // namespace
}  // namespace quillmeter
