#include <inttypes.h>
#include <stdio.h>

#include <kvocaeio/kvocaeio.h>

int main(int argc, char** argv) {
    kvocaeio_options options;
    kvocaeio_model* model;
    kvocaeio_nodes nodes;
    kvocaeio_section section;
    const int32_t* rows;
    size_t sections, i;
    kvocaeio_init_options(&options, sizeof options);
    options.tidy = 1;
    if (argc != 2 || kvocaeio_open(argv[1], &options, &model) != KVOCAEIO_OK) {
        fprintf(stderr, "%s\n", argc == 2 ? kvocaeio_error_text() : "usage: c_reader FILE");
        return 1;
    }
    nodes.struct_size = sizeof nodes;
    section.struct_size = sizeof section;
    if (kvocaeio_get_nodes(model, &nodes) == KVOCAEIO_OK &&
        kvocaeio_get_section_count(model, KVOCAEIO_SECTIONS, &sections) == KVOCAEIO_OK) {
        printf("%s, %zu nodes\n", kvocaeio_format_name(kvocaeio_model_format(model)), nodes.count);
        for (i = 0; i < sections; ++i) {
            if (kvocaeio_get_section(model, KVOCAEIO_SECTIONS, i, &section) != KVOCAEIO_OK ||
                kvocaeio_get_connectivity(model, KVOCAEIO_SECTIONS, i, KVOCAEIO_ROWS, &rows) !=
                    KVOCAEIO_OK)
                break;
            printf("%s: %zu elements of %zu nodes", section.name, section.count,
                   section.nodes_per_element);
            if (rows != NULL && rows[0] >= 0)
                printf(", the first of node %" PRId32, nodes.oids[rows[0]]);
            printf("\n");
        }
    }
    kvocaeio_close(model);
    return 0;
}
