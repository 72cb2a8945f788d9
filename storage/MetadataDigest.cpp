#include <CommonKit/storage/MetadataDigest.h>

#include <CommonKit/support/json/JsonPrinter.h>
#include <CommonKit/support/json/Variant.h>

#include <boost/iostreams/device/null.hpp>
#include <boost/iostreams/filtering_stream.hpp>

namespace ko {
namespace crypto {

void digest(const json::Variant& value, MessageDigest* digest)
{
    boost::iostreams::filtering_ostream out;
    out.push(digesting_output_filter(digest));
    out.push(boost::iostreams::null_sink());
    json::JsonPrinter printer(
        [](void* context, const char* data, int length) {
            static_cast<boost::iostreams::filtering_ostream*>(context)->write(data, length);
        },
        &out);
    printer.setIndent("\t");
    printer.print(value);
    out.flush();
    out.reset();
}

secure_string digest(const json::Variant& value, MessageDigest::Algorithm algorithm)
{
    MessageDigest running(algorithm);
    digest(value, &running);
    return running.digest();
}

} // namespace crypto
} // namespace ko
