// The container and keygen subcommands of the commonkit tool.

#include "testlib/TestFiles.h"
#include "testlib/ToolRunner.h"
#include "testlib/ToolTable.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <filesystem>

namespace {

using namespace cktest;

// `commonkit container <arguments>`.
ToolRun container(const QStringList& arguments, const QByteArray& input = QByteArray())
{
    return runTool(QStringList{"container"} + arguments, "UTC0", input);
}

class ContainerTool : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        s_keys = new QTemporaryDir;
        const ToolRun run = runTool({"keygen", privateKey(), publicKey(), "--bits", "2048"});
        ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    }
    static void TearDownTestSuite() { delete s_keys; }

    void SetUp() override
    {
        m_input = path("input.bin");
        m_data = QByteArray(200000, Qt::Uninitialized);
        for (int i = 0; i < m_data.size(); ++i)
            m_data[i] = static_cast<char>(i % 3 ? QRandomGenerator::global()->generate() : 'x');
        writeFile(m_input, m_data);
        writeFile(path("key"), "tool secret\n");
        writeFile(path("wrong"), "not the key");
        // A 512-bit key: too small to sign a SHA-512 digest (PKCS#1 v1.5
        // needs 94 bytes, the key has 64), enough for SHA-256.
        ASSERT_TRUE(QFile::copy(COMMONKIT_TEST_DATA "/tool/small-key.pem", path("small.pem")));
    }

    QString path(const QString& name) const { return m_dir.filePath(name); }
    static QString privateKey() { return s_keys->filePath("private.pem"); }
    static QString publicKey() { return s_keys->filePath("public.pem"); }

    static QTemporaryDir* s_keys;
    QTemporaryDir m_dir;
    QString m_input;
    QByteArray m_data;
};

QTemporaryDir* ContainerTool::s_keys = nullptr;

TEST_F(ContainerTool, KeygenWritesAPrivateAndAPublicKey)
{
    EXPECT_TRUE(readFile(publicKey()).startsWith("-----BEGIN PUBLIC KEY-----"));
#ifndef _WIN32
    EXPECT_EQ(QFile::permissions(privateKey()) & (QFile::ReadGroup | QFile::ReadOther), QFileDevice::Permissions());
#endif
    // Existing files are kept unless forced.
    const QByteArray before = readFile(privateKey());
    const ToolRun refused = runTool({"keygen", privateKey(), path("p.pem")});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TRUE(refused.err.contains("--force")) << refused.err.toStdString();
    EXPECT_EQ(readFile(privateKey()), before);
    EXPECT_FALSE(QFile::exists(path("p.pem")));
}

TEST_F(ContainerTool, CreateExtractInfoAndVerifyRoundTrip)
{
    const struct
    {
        QStringList options;   // for create
        QStringList keyOption; // for extract and verify
        QByteArray standardInput;
        const char* storage;
        const char* info; // in the output of info
    } rows[] = {
        {{}, {}, QByteArray(), "stored as is", "\"content-length\": 200000,"},
        {{"--key-file", "-", "--compress", "-1", "--sign", privateKey(), "--signer", "Zoë Tester"},
         {"--key-file", path("key")},
         "tool secret",
         "compressed, encrypted, signed",
         "\"signer\": \"Zoë Tester\""},
        {{"--sign", "-", "--digest", "sha512"}, {}, readFile(privateKey()), "signed",
         "\"digest-algorithm\": \"SHA512\""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.storage);
        const QString box = path(row.storage), output = path(row.storage) + ".out";
        ToolRun run = container(QStringList{"create", m_input, box} + row.options, row.standardInput);
        ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
        EXPECT_TRUE(run.out.contains(QStringLiteral("(%1)").arg(QLatin1String(row.storage)))) << run.out.toStdString();

        run = container(QStringList{"extract", box, output} + row.keyOption);
        ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
        EXPECT_TRUE(readFile(output) == m_data);

        run = container({"info", box});
        ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
        EXPECT_TRUE(run.out.startsWith("{\n    \"compression\": ")) << run.out.toStdString();
        EXPECT_TRUE(run.out.contains(row.info)) << run.out.toStdString();

        const bool isSigned = QByteArray(row.storage).contains("signed");
        run = container(QStringList{"verify", box, "--public", publicKey()} + row.keyOption);
        EXPECT_EQ(run.exitCode, isSigned ? 0 : 1) << run.err.toStdString();
        const QString said = isSigned ? run.out : run.err;
        EXPECT_TRUE(said.contains(isSigned ? "is valid" : "is not signed")) << said.toStdString();
    }
}

TEST_F(ContainerTool, TamperingWrongKeysAndBadInputFailWithOneLine)
{
    const QString box = path("box");
    ASSERT_EQ(container({"create", m_input, box, "--key-file", path("key"), "--sign", privateKey()}).exitCode, 0);
    QByteArray tampered = readFile(box);
    tampered[1000] = static_cast<char>(tampered[1000] ^ 0x20);
    writeFile(path("tampered"), tampered);
    writeFile(path("junk"), "this is not a container at all");

    ASSERT_TRUE(QFile::copy(publicKey(), path("public.pem")));
    for (const DataRow& row : dataRows("tool/container-errors.tsv", -2)) {
        const ToolRun run = container(argumentsOf(row, 2, m_dir.path()));
        const std::string label = row.where + ": " + run.err.toStdString();
        EXPECT_EQ(run.exitCode, std::stoi(row[0])) << label;
        EXPECT_TRUE(run.err.startsWith("commonkit: container")) << label;
        EXPECT_TRUE(run.err.contains(QString::fromStdString(row[1]))) << label;
        EXPECT_EQ(run.err.count('\n'), 1) << label;
        EXPECT_FALSE(QFile::exists(path("out"))) << label; // no partial output is left behind
    }
}

TEST_F(ContainerTool, KeyFilesLoseOneLineBreakOnly)
{
    for (const DataRow& row : dataRows("tool/key-files.tsv", 3)) {
        writeFile(path("sealing"), QByteArray::fromStdString(row[0]));
        writeFile(path("opening"), QByteArray::fromStdString(row[1]));
        ASSERT_EQ(container({"create", m_input, path("box"), "--key-file", path("sealing")}).exitCode, 0);
        const ToolRun run = container({"extract", path("box"), path("out"), "--key-file", path("opening")});
        EXPECT_EQ(run.exitCode, row[2] == "1" ? 0 : 1) << row.where << ": " << run.err.toStdString();
        QFile::remove(path("out"));
    }
}

// Links to the input are the input: writing through them would destroy it.
TEST_F(ContainerTool, OutputThatIsTheInputUnderAnotherNameIsRefused)
{
    const QString box = path("box");
    ASSERT_EQ(container({"create", m_input, box}).exitCode, 0);
    const QByteArray sealed = readFile(box);
    const auto native = [](const QString& name) { return std::filesystem::path(name.toStdWString()); };
    ASSERT_TRUE(QFile::link(m_input, path("input.symlink")));
    ASSERT_TRUE(QFile::link(box, path("box.symlink")));
    std::filesystem::create_hard_link(native(m_input), native(path("input.hardlink")));
    std::filesystem::create_hard_link(native(box), native(path("box.hardlink")));
    for (const DataRow& row : dataRows("tool/same-file.tsv", -1)) {
        const ToolRun run = container(argumentsOf(row, 0, m_dir.path()));
        const std::string label = row.where + ": " + run.err.toStdString();
        EXPECT_EQ(run.exitCode, 2) << label;
        EXPECT_TRUE(run.err.contains("same file")) << label;
        EXPECT_TRUE(readFile(m_input) == m_data) << label;
        EXPECT_TRUE(readFile(box) == sealed) << label;
    }
}

// A run that fails leaves a file that was already at the output alone.
TEST_F(ContainerTool, FailuresLeaveAnExistingOutputAsItWas)
{
    const QString box = path("box");
    const QString keyFile = path("key");
    ASSERT_EQ(container({"create", m_input, box, "--key-file", keyFile, "--compress", "6"}).exitCode, 0);
    QByteArray damaged = readFile(box);
    damaged[damaged.size() / 3] = static_cast<char>(damaged[damaged.size() / 3] ^ 0x01);
    writeFile(path("damaged"), damaged);
    const QString out = path("precious");
    const QByteArray precious("an earlier file that must survive");
    const auto onlyPrecious = [&] {
        return QDir(m_dir.path()).entryList(QDir::Files).filter("precious") == QStringList{"precious"};
    };
    QList<QStringList> rows;
    for (const DataRow& row : dataRows("tool/failing-over-output.tsv", -1))
        rows.append(argumentsOf(row, 0, m_dir.path()));
    // An input that opens but cannot be read fails after the container was
    // started.
    if (QFileInfo::exists("/proc/self/mem"))
        rows.append({"create", "/proc/self/mem", out});
    for (const QStringList& arguments : rows) {
        const std::string label = arguments.join(' ').toStdString();
        writeFile(out, precious);
        const ToolRun run = container(arguments);
        EXPECT_EQ(run.exitCode, 1) << label << ": " << run.err.toStdString();
        EXPECT_EQ(readFile(out), precious) << label;
        EXPECT_TRUE(onlyPrecious()) << label << ": the output is gone or a temporary file was left behind";
    }
    // An output that is not a file is written directly.
    if (QFileInfo("/dev/stdout").exists()) {
        writeFile(path("text"), "plain text for the pipe\n");
        ASSERT_EQ(container({"create", path("text"), path("text.box")}).exitCode, 0);
        const ToolRun piped = container({"extract", path("text.box"), "/dev/stdout"});
        EXPECT_EQ(piped.exitCode, 0) << piped.err.toStdString();
        EXPECT_TRUE(piped.out.startsWith("plain text for the pipe\n")) << piped.out.toStdString();
    }
    // A run that succeeds replaces it, keeps its permissions, and leaves
    // nothing else behind.
    writeFile(out, precious);
    const QFile::Permissions permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
    ASSERT_TRUE(QFile::setPermissions(out, permissions));
    ASSERT_EQ(container({"create", m_input, out}).exitCode, 0);
    EXPECT_EQ(QFile(out).permissions() & (permissions | QFile::ReadOther), permissions);
    ASSERT_EQ(container({"extract", box, out, "--key-file", keyFile}).exitCode, 0);
    EXPECT_TRUE(readFile(out) == m_data);
    EXPECT_TRUE(onlyPrecious());
}

TEST_F(ContainerTool, HelpListsActionsAndOptions)
{
    const ToolRun run = container({"--help"});
    EXPECT_EQ(run.exitCode, 0);
    for (const char* action : {"create", "extract", "info", "verify"}) {
        EXPECT_TRUE(run.out.contains(action)) << action;
        const ToolRun help = container({action, "--help"});
        EXPECT_EQ(help.exitCode, 0) << action;
        EXPECT_TRUE(help.out.contains("--lang")) << action;
    }
}

} // namespace
