<?xml version="1.0" encoding="UTF-8"?>
<!-- Turns a short text of headings, paragraphs and emphasis into the markup that labels understand:

         <text>                                <markup><b><big>Marks</big></b>
           <heading>Marks</heading>
           <paragraph>Click <em>once</em>.     Click <i>once</i>.</markup>
           </paragraph>
         </text>
-->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:output method="xml" encoding="UTF-8" omit-xml-declaration="yes"/>
  <xsl:strip-space elements="text"/>

  <xsl:template match="/text">
    <markup><xsl:apply-templates/></markup>
  </xsl:template>

  <xsl:template match="heading">
    <xsl:call-template name="gap"/>
    <b><big><xsl:apply-templates/></big></b>
  </xsl:template>

  <xsl:template match="paragraph">
    <xsl:call-template name="gap"/>
    <xsl:apply-templates/>
  </xsl:template>

  <xsl:template match="em"><i><xsl:apply-templates/></i></xsl:template>
  <xsl:template match="strong"><b><xsl:apply-templates/></b></xsl:template>
  <xsl:template match="break"><xsl:text>&#10;</xsl:text></xsl:template>

  <!-- Lines wrap by themselves: the source's own line breaks are only spaces. -->
  <xsl:template match="heading//text() | paragraph//text()">
    <xsl:if test="starts-with(translate(., '&#9;&#10;&#13;', '   '), ' ') and preceding-sibling::node()">
      <xsl:text> </xsl:text>
    </xsl:if>
    <xsl:value-of select="normalize-space(.)"/>
    <xsl:if test="following-sibling::node() and
                  substring(translate(., '&#9;&#10;&#13;', '   '), string-length(.)) = ' ' and
                  normalize-space(.) != ''">
      <xsl:text> </xsl:text>
    </xsl:if>
  </xsl:template>

  <xsl:template name="gap">
    <xsl:if test="preceding-sibling::*"><xsl:text>&#10;&#10;</xsl:text></xsl:if>
  </xsl:template>
</xsl:stylesheet>
