#include "client/CreateOptions.h"

namespace zorvo {

namespace {

/// Product key and version hold no "/"; a name may.
std::optional<TemplateName> templateName(const std::string& sText)
{
    const auto nFirst = sText.find('/');
    const auto nSecond = nFirst == std::string::npos ? nFirst : sText.find('/', nFirst + 1);
    if (nSecond == std::string::npos)
        return std::nullopt;
    TemplateName name{.sProductKey = sText.substr(0, nFirst),
                      .sVersion = sText.substr(nFirst + 1, nSecond - nFirst - 1),
                      .sName = sText.substr(nSecond + 1)};
    if (name.sProductKey.empty() || name.sVersion.empty() || name.sName.empty())
        return std::nullopt;
    return name;
}

/// Takes the arguments one after the other; each step is false for wrong usage.
class CreateOptionsParser {
public:
    bool take(const std::vector<std::string>& args)
    {
        for (std::size_t n = 0; n < args.size(); ++n) {
            const std::string& sArgument = args[n];
            if (!bOptionsEnded_ && sArgument == "--")
                bOptionsEnded_ = true;
            else if (bOptionsEnded_ || !sArgument.starts_with("-"))
                bGood_ = takeTemplate(sArgument) && bGood_;
            else if (sArgument == "--json")
                options.bJson = true;
            else
                bGood_ = takeValue(args, n) && bGood_;
        }
        const bool bOneSource = options.sSelectionFile.has_value() != !options.templates.empty();
        return bGood_ && bOneSource && !options.sFolder.empty();
    }

    CreateOptions options;

private:
    bool takeTemplate(const std::string& sText)
    {
        auto name = templateName(sText);
        if (!name)
            return false;
        options.templates.push_back(*std::move(name));
        return true;
    }

    bool takeValue(const std::vector<std::string>& args, std::size_t& n)
    {
        const auto nEquals = args[n].find('=');
        const std::string sOption = args[n].substr(0, nEquals);
        if (nEquals == std::string::npos && n + 1 == args.size())
            return false;
        const std::string sValue = nEquals == std::string::npos ? args[++n] : args[n].substr(nEquals + 1);
        if (sValue.empty())
            return false;
        if (sOption == "--to")
            options.sFolder = sValue;
        else if (sOption == "--selection")
            options.sSelectionFile = sValue;
        else if (sOption == "--company")
            options.sCompany = sValue;
        else if (sOption == "--profile")
            options.sProfileFile = sValue;
        else
            return false;
        return true;
    }

    bool bOptionsEnded_ = false;
    bool bGood_ = true;
};

} // namespace

std::optional<CreateOptions> parseCreateOptions(const std::vector<std::string>& args)
{
    CreateOptionsParser parser;
    if (!parser.take(args))
        return std::nullopt;
    return std::move(parser.options);
}

} // namespace zorvo
