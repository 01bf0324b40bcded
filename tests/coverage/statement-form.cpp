#include "tests/coverage/statement-form.h"

#include <stdexcept>
#include <utility>

namespace torvel::test {

namespace {

FormClass classOf(const std::vector<const MessageRow*>& messages) {
    if (messages.empty()) {
        return FormClass::converted;
    }
    return messages.front()->messageClass == "placeholder" ? FormClass::placeholders
                                                           : FormClass::advised;
}

const MessageRow* messageRow(std::string_view symbol) {
    const MessageRow* row = findMessageRow(symbol);
    if (row == nullptr) {
        throw std::runtime_error("no message is called " + std::string(symbol));
    }
    return row;
}

}  // namespace

StatementForm convertedForm(std::string brannic, std::string torvel,
                            std::initializer_list<std::string_view> messages) {
    StatementForm form{std::move(brannic), std::move(torvel), {}, FormClass::converted};
    for (const std::string_view symbol : messages) {
        if (!symbol.empty()) {
            form.messages.push_back(messageRow(symbol));
        }
    }
    form.formClass = classOf(form.messages);
    return form;
}

StatementForm refusedForm(std::string brannic, std::string_view message) {
    return {std::move(brannic), {}, {messageRow(message)}, FormClass::refused};
}

StatementForm assignedForm(StatementForm form) {
    form.brannic.insert(0, "variable = ");
    if (form.formClass != FormClass::refused) {
        form.torvel.insert(0, "variable = ");
    }
    return form;
}

}  // namespace torvel::test
