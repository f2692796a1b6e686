#include "tables/DesktopFileBrowser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QTest>
#include <algorithm>
#include <filesystem>

#include "helpers/FakeServices.h"
#include "helpers/QtWaiting.h"
#include "helpers/TemporaryFolder.h"

namespace quillmeter {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using namespace std::chrono_literals;

/// A session bus of the test's own.
class PrivateBus {
 public:
  PrivateBus() {
    daemon_.start(QStringLiteral("dbus-daemon"),
                  {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                   QStringLiteral("--nopidfile")});
    while (!daemon_.canReadLine() && daemon_.waitForReadyRead()) {
    }
    address_ = QString::fromLatin1(daemon_.readLine()).trimmed();
    EXPECT_FALSE(address_.isEmpty()) << "no dbus-daemon: " << daemon_.errorString().toStdString();
  }
  ~PrivateBus() {
    daemon_.kill();
    daemon_.waitForFinished();
  }
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;

  [[nodiscard]] const QString& address() const { return address_; }

 private:
  QProcess daemon_;
  QString address_;
};

/// A file browser on a private bus that notes what it is asked for.
class FakeFileManager final : public QDBusVirtualObject {
 public:
  enum class Manner { answers, refuses, hangs };

  FakeFileManager(const QString& address, Manner manner)
      : connection_(QDBusConnection::connectToBus(address, QStringLiteral("fake-file-manager"))),
        manner_(manner) {
    EXPECT_TRUE(connection_.registerVirtualObject(QStringLiteral("/org/freedesktop/FileManager1"), this));
    EXPECT_TRUE(connection_.registerService(QStringLiteral("org.freedesktop.FileManager1")));
  }
  ~FakeFileManager() override { QDBusConnection::disconnectFromBus(QStringLiteral("fake-file-manager")); }

  [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }

  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    EXPECT_EQ(message.interface(), QStringLiteral("org.freedesktop.FileManager1"));
    EXPECT_EQ(message.member(), QStringLiteral("ShowItems"));
    EXPECT_EQ(message.signature(), QStringLiteral("ass"));
    asked.push_back(message.arguments().value(0).toStringList().join(QLatin1Char(' ')).toStdString());
    if (manner_ == Manner::answers) connection.send(message.createReply());
    if (manner_ == Manner::refuses) {
      connection.send(message.createErrorReply(QDBusError::Failed, QStringLiteral("no")));
    }
    return true;
  }

  std::vector<std::string> asked;

 private:
  QDBusConnection connection_;
  Manner manner_;
};

/// A socket that takes connections and never says a word.
class SilentSocket {
 public:
  SilentSocket() : socket_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_un name{};
    name.sun_family = AF_UNIX;
    const std::string path = folder_ / "bus";
    std::copy(path.begin(), path.end(), std::begin(name.sun_path));
    EXPECT_EQ(::bind(socket_, reinterpret_cast<const sockaddr*>(&name), sizeof name), 0);
    EXPECT_EQ(::listen(socket_, 8), 0);
  }
  ~SilentSocket() { ::close(socket_); }
  SilentSocket(const SilentSocket&) = delete;
  SilentSocket& operator=(const SilentSocket&) = delete;

  [[nodiscard]] QString address() const {
    return QStringLiteral("unix:path=") + QString::fromStdString(folder_ / "bus");
  }

 private:
  testing::TemporaryFolder folder_;
  int socket_;
};

class DesktopFileBrowserTest : public ::testing::Test {
 protected:
  [[nodiscard]] std::unique_ptr<DesktopFileBrowser> browserOn(const QString& address) {
    return std::make_unique<DesktopFileBrowser>(delayedCalls, address, [this](const QUrl& url) {
      opened.push_back(url.toString(QUrl::FullyEncoded).toStdString());
    });
  }
  template <class Condition>
  static void waitUntil(Condition condition) {
    EXPECT_TRUE(testing::waitFor(condition));
  }
  /// Lets everything that is under way arrive.
  static void settle() { QTest::qWait(100); }

  testing::TemporaryFolder folder;
  std::string file = folder.file("main file.c");
  std::shared_ptr<testing::ManualDelayedCalls> delayedCalls = std::make_shared<testing::ManualDelayedCalls>();
  std::vector<std::string> opened;
};

TEST_F(DesktopFileBrowserTest, AsksTheFileBrowserToSelectTheFile) {
  const PrivateBus bus;
  FakeFileManager manager(bus.address(), FakeFileManager::Manner::answers);
  const auto browser = browserOn(bus.address());
  browser->reveal(file);
  browser->reveal("/tmp/a\xFF.c");
  waitUntil([&] { return manager.asked.size() == 2; });
  EXPECT_THAT(manager.asked, ElementsAre("file://" + folder.path() + "/main%20file.c", "file:///tmp/a%FF.c"));
  settle();
  delayedCalls->advance(1min);
  EXPECT_THAT(opened, IsEmpty());
}

TEST_F(DesktopFileBrowserTest, AFileThatWasDeletedIsLeftToTheFileBrowser) {
  const PrivateBus bus;
  FakeFileManager manager(bus.address(), FakeFileManager::Manner::answers);
  const auto browser = browserOn(bus.address());
  std::filesystem::remove(file);
  browser->reveal(file);
  waitUntil([&] { return manager.asked.size() == 1; });
}

TEST_F(DesktopFileBrowserTest, ARefusalOpensTheFolder) {
  const PrivateBus bus;
  FakeFileManager manager(bus.address(), FakeFileManager::Manner::refuses);
  const auto browser = browserOn(bus.address());
  browser->reveal(file);
  waitUntil([&] { return !opened.empty(); });
  delayedCalls->advance(1min);
  EXPECT_THAT(opened, ElementsAre("file://" + folder.path())) << "once only";
}

TEST_F(DesktopFileBrowserTest, ABusWithoutAFileBrowserOpensTheFolder) {
  const PrivateBus bus;
  const auto browser = browserOn(bus.address());
  browser->reveal(file);
  waitUntil([&] { return !opened.empty(); });
  EXPECT_THAT(opened, ElementsAre("file://" + folder.path()));
}

TEST_F(DesktopFileBrowserTest, WithoutABusTheFolderIsOpened) {
  const auto browser = browserOn(QStringLiteral("unix:path=") + QString::fromStdString(folder / "no-bus"));
  browser->reveal(file);
  waitUntil([&] { return opened.size() == 1; });
  browser->reveal(file);
  waitUntil([&] { return opened.size() == 2; });
  EXPECT_EQ(opened[1], "file://" + folder.path());
}

TEST_F(DesktopFileBrowserTest, AFolderThatIsGoneIsNotOpened) {
  const auto browser = browserOn(QStringLiteral("unix:path=") + QString::fromStdString(folder / "no-bus"));
  browser->reveal(folder / "gone/main.c");
  browser->reveal(file);
  waitUntil([&] { return !opened.empty(); });
  EXPECT_THAT(opened, ElementsAre("file://" + folder.path()));
}

TEST_F(DesktopFileBrowserTest, AFileBrowserThatHangsIsWaitedForTenSeconds) {
  const PrivateBus bus;
  FakeFileManager manager(bus.address(), FakeFileManager::Manner::hangs);
  const auto browser = browserOn(bus.address());
  browser->reveal(file);
  browser->reveal(file);
  waitUntil([&] { return manager.asked.size() == 2; });
  delayedCalls->advance(9999ms);
  EXPECT_THAT(opened, IsEmpty());
  ASSERT_NE(QGuiApplication::overrideCursor(), nullptr) << "the user has no sign";
  EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::BusyCursor);
  delayedCalls->advance(1ms);
  EXPECT_THAT(opened, ElementsAre("file://" + folder.path(), "file://" + folder.path()));
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(DesktopFileBrowserTest, TheWaitingCursorGoesWithTheAnswerAndWithTheProgram) {
  const PrivateBus bus;
  FakeFileManager manager(bus.address(), FakeFileManager::Manner::answers);
  auto browser = browserOn(bus.address());
  browser->reveal(file);
  EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
  waitUntil([] { return QGuiApplication::overrideCursor() == nullptr; });
  browser->reveal(file);
  browser.reset();
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(DesktopFileBrowserTest, ABusThatHangsHoldsNobodyUp) {
  const auto socket = std::make_unique<SilentSocket>();
  auto browser = browserOn(socket->address());
  browser->reveal(file);
  settle();
  EXPECT_THAT(opened, IsEmpty());
  delayedCalls->advance(10s);
  EXPECT_THAT(opened, ElementsAre("file://" + folder.path()));
  browser.reset();
  settle();
  EXPECT_EQ(opened.size(), 1U);
}

TEST(FileAddress, EveryByteSurvives) {
  EXPECT_EQ(fileAddress("/a b/ä?#%.c"), QByteArray("file:///a%20b/%C3%A4%3F%23%25.c"));
  EXPECT_EQ(fileAddress("/"), QByteArray("file:///"));
}

}  // namespace
}  // namespace quillmeter
