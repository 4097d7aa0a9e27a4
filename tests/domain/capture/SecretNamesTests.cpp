#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/PythonText.h"
#include "TessaryDomain/capture/SecretNames.h"
#include "TessaryPlatform/text/RegularExpression.h"

#include "ExpressionTexts.h"

namespace tessary {
namespace {

using SecretNames::isCredentialName;
using SecretNames::isSSHKeyName;

TEST(CredentialNames, EndInAWordForASecret) {
  for (const std::string name :
       {"secret", "secrets", "credential", "credentials", "token", "tokens", "auth", "apikey", "api-key", "api_key",
        "service-account", "service_account", "my.auth", "a-b_c.token", "-token", "..auth", "x-service-account"})
    EXPECT_TRUE(isCredentialName(name)) << name;
  for (const std::string name : {"", "tokenizer", "mytoken", "token-", "api.key", "serviceaccount", "service.account",
                                 "Secret", "authx", "secretss", "a b auth", "author", "key", "dev", "-"})
    EXPECT_FALSE(isCredentialName(name)) << name;
}

TEST(CredentialNames, MayNameAnEnvironment) {
  for (const std::string environment : {"dev", "development", "prod", "production", "staging", "stage", "test",
                                        "testing", "local", "qa", "ci", "preview", "sandbox"}) {
    EXPECT_TRUE(isCredentialName("token-" + environment)) << environment;
    EXPECT_TRUE(isCredentialName("my_token." + environment)) << environment;
    EXPECT_FALSE(isCredentialName("token" + environment)) << environment;
    EXPECT_FALSE(isCredentialName("token-" + environment + "-" + environment)) << environment;
    EXPECT_FALSE(isCredentialName(environment)) << environment;
  }
  EXPECT_FALSE(isCredentialName("token-devel"));
}

TEST(CredentialNames, AreOneLine) {
  EXPECT_FALSE(isCredentialName("a\n-token"));
  EXPECT_FALSE(isCredentialName("token\n"));
  EXPECT_FALSE(isCredentialName("\ntoken"));
  EXPECT_TRUE(isCredentialName("a\r-token"));
  EXPECT_TRUE(isCredentialName(std::string_view("\0-token", 7)));
}

TEST(SSHKeyNames, BeginWithTheKindOfKey) {
  for (const std::string name :
       {"id_rsa", "id_ed25519", "id_ecdsa", "id_dsa", "id_rsa.pub", "id_dsa-x", "id_ecdsa_", "id_rsa.\xFF"})
    EXPECT_TRUE(isSSHKeyName(name)) << name;
  for (const std::string name :
       {"", "id_", "id_rsax", "xid_rsa", "id_ed25518", "id_rsa pub", "ID_RSA", "id_rsa.a\n", "id_rsa\n", "id-rsa"})
    EXPECT_FALSE(isSSHKeyName(name)) << name;
}

// The scanners against the expressions.

void checkAgainstTheExpressions(const std::string& name) {
  static const RegularExpression credential = PythonText::expression(SecretNames::credentialNamePattern);
  static const RegularExpression key = PythonText::expression(SecretNames::sshKeyNamePattern);
  ASSERT_TRUE(credential.isValid() && key.isValid());
  const RegexSubject subject(name);
  const RegexFind foundCredential = credential.find(subject);
  const RegexFind foundKey = key.find(subject);
  ASSERT_TRUE(foundCredential.isComplete && foundKey.isComplete);
  ASSERT_EQ(isCredentialName(name), foundCredential.match.has_value()) << testing::PrintToString(name);
  ASSERT_EQ(isSSHKeyName(name), foundKey.match.has_value()) << testing::PrintToString(name);
}

TEST(SecretNames, AreThoseOfTheExpressionsForEveryShortName) {
  forEveryText({"secret", "s", "token", "api", "key", "-", ".", "prod", "\n"}, 5, checkAgainstTheExpressions);
  forEveryText({"service", "account", "auth", "credential", "s", "_", "-", "ci", "x"}, 4, checkAgainstTheExpressions);
  forEveryText({"id_", "id", "_", "rsa", "ed25519", "ecdsa", "dsa", ".", "-x", "\n"}, 4, checkAgainstTheExpressions);
}

TEST(SecretNames, AreThoseOfTheExpressionsForRandomNames) {
  std::mt19937 random(20260320);
  const std::vector<std::string> units = {
      "secret", "secrets", "credential", "credentials", "token",   "tokens", "auth",   "api",        "key",
      "apikey", "service", "account",    "dev",         "prod",    "stage",  "test",   "testing",    "development",
      "local",  "qa",      "ci",         "preview",     "sandbox", "-",      "_",      ".",          "-",
      "_",      ".",       "s",          "\n",          "\u00E9",  "\xE2",   "id_rsa", "production", "staging"};
  int credentials = 0;
  for (int round = 0; round < 30000; ++round) {
    const std::string name = randomText(units, random() % 7, random);
    credentials += isCredentialName(name) ? 1 : 0;
    ASSERT_NO_FATAL_FAILURE(checkAgainstTheExpressions(name)) << "round " << round;
  }
  EXPECT_GT(credentials, 500);
}

}  // namespace
}  // namespace tessary
