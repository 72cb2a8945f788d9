#pragma once

// Reading keys for the tool's subcommands. Keys never come from the command
// line itself: only from files, or from standard input when the name is "-".

#include "CommandLine.h"

#include <CommonKit/support/crypto/RSAKeyPair.h>
#include <CommonKit/support/crypto/SecureAllocator.h>

#include <QString>
#include <QStringList>

namespace cktool {

// The bytes of a key file ("-" for standard input) with one trailing line
// break removed, so that keys written by echo or an editor work. At most
// 1 MiB. Throws CommandError when the file cannot be read.
ko::crypto::secure_string readSecret(const QString& path, const QString& command);

// An RSA key from a PEM file ("-" for standard input). With needPrivate the
// file must hold a private key. Throws CommandError otherwise.
ko::crypto::RSAKeyPair loadKeyPair(const QString& path, bool needPrivate, const QString& command);

// Throws CommandError (exit code 2) when more than one of the options reads
// standard input.
void checkSingleStandardInput(const CommandLine& commandLine, const QStringList& options, const QString& command);

} // namespace cktool
