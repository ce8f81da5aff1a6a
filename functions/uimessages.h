#pragma once

int acetUiMessage();     // acet-ui-message
int acetUiMessageHtml(); // acet-ui-message-html
